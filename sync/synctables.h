// The address database in memory. docs/formats/addressdatabase.md describes its file.
#pragma once

#include "base/windows1252.h"
#include "register/settings.h"

#include <array>
#include <deque>
#include <memory>
#include <vector>

namespace norvik {

/// Records 1 to SyncRecords hold the file's records; record 0 is never filled.
inline constexpr std::size_t SyncRecords = 1000;
/// So many fields of a record are kept.
inline constexpr std::size_t SyncFields = 40;
inline constexpr std::size_t SyncItems = 10;

/// Three tables with one record index. The cells are views into the lines of the file or the texts
/// of its contacts, which the tables share: a mapping may name the same field ten times.
struct SyncTables {
    /// The tables' columns.
    enum Names { Surname, GivenName, Company, NameColumns };
    enum Addresses { Street, Zip, City, AddressColumns };
    enum Phones { Business, Private, Fax, Other, PhoneColumns };

    std::vector<std::array<TextView, NameColumns>> SyncNameTable;
    std::vector<std::array<TextView, AddressColumns>> SyncAddressTable;
    std::vector<std::array<TextView, PhoneColumns>> SyncPhoneTable;
    std::shared_ptr<const std::deque<Text>> Lines;
    /// How many records had characters replaced, and the first field of the first one.
    std::size_t ReplacedRecords = 0;
    TextView FirstReplaced;

    /// The numbers are those of contacts, as people write them: what the telephone dials decides.
    bool OfContacts = false;

    /// Tables with room for all records, all cells empty.
    SyncTables();

    /// A record had characters replaced; `name` must live as long as the tables.
    void NoteReplaced(TextView name);
};

/// Puts the records of a file into empty tables, their fields into the cells as the settings'
/// mapping says, and gives the number of records. A mapping outside 1 to SyncFields, or a field
/// that a record does not have, leaves the cell empty. Records behind the last place are not read.
std::size_t ReadSyncRecords(ByteView file, const SettingsTable& settings, SyncTables& tables);

}  // namespace norvik
