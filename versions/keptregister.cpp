#include "versions/keptregister.h"

#include "base/platform.h"
#include "versions/bytes.h"

#include <limits>
#include <set>

namespace norvik {

namespace {

using Int16 = std::numeric_limits<std::int16_t>;
using Int32 = std::numeric_limits<std::int32_t>;
using Int64 = std::numeric_limits<std::int64_t>;

constexpr int FlagSize = 1;
constexpr int ShortSize = 2;
constexpr int LongSize = 4;
constexpr int TimeSize = 8;

void AppendPath(ByteAppender& bytes, const FilePath& path) {
    const std::string utf8 = platform::Utf8Of(path);
    bytes.Block(ByteView(reinterpret_cast<const Byte*>(utf8.data()), utf8.size()));
}

FilePath TakePath(ByteTaker& bytes) {
    const ByteView utf8 = bytes.Block();
    return platform::PathOfUtf8(std::string(utf8.begin(), utf8.end()));
}

void AppendFile(ByteAppender& bytes, const CurrentFile& file) {
    bytes.String(file.Type);
    AppendPath(bytes, file.Path);
    bytes.Number(file.Modified ? 1 : 0, FlagSize);
    bytes.Number(file.Modified ? file.Modified->time_since_epoch().count() : 0, TimeSize);
}

CurrentFile TakeFile(ByteTaker& bytes) {
    CurrentFile file;
    file.Type = bytes.String();
    file.Path = TakePath(bytes);
    const bool dated = bytes.Number(FlagSize, 0, 1) == 1;
    const std::int64_t time = bytes.Number(TimeSize, Int64::min(), Int64::max());
    if (dated) {
        file.Modified = FileTime(FileTime::duration(time));
    }
    return file;
}

void AppendEntry(ByteAppender& bytes, const RegisterEntry& entry) {
    bytes.Number(entry.RecIndex, ShortSize);
    bytes.Number(entry.RecNumber, ShortSize);
    bytes.Number(entry.Ton, ShortSize);
    bytes.Number(entry.MsnFilter, ShortSize);
    bytes.Number(entry.GebEinh, LongSize);
    bytes.Number(entry.AB, ShortSize);
    bytes.String(entry.Name);
    bytes.String(entry.Tel);
    bytes.String(entry.Info);
}

std::int16_t TakeShort(ByteTaker& bytes) {
    return static_cast<std::int16_t>(bytes.Number(ShortSize, Int16::min(), Int16::max()));
}

RegisterEntry TakeEntry(ByteTaker& bytes) {
    RegisterEntry entry;
    entry.RecIndex = TakeShort(bytes);
    entry.RecNumber = TakeShort(bytes);
    entry.Ton = TakeShort(bytes);
    entry.MsnFilter = TakeShort(bytes);
    entry.GebEinh = static_cast<std::int32_t>(bytes.Number(LongSize, Int32::min(), Int32::max()));
    entry.AB = TakeShort(bytes);
    entry.Name = bytes.String();
    entry.Tel = bytes.String();
    entry.Info = bytes.String();
    return entry;
}

/// Whether the place is as ResetRegister leaves it; the listed mark does not count.
bool IsEmptyPlace(const RegisterEntry& entry, int place) {
    RegisterEntry empty;
    empty.RecIndex = static_cast<std::int16_t>(place - 1);
    empty.Listed = entry.Listed;
    return entry == empty;
}

/// So many bytes and a few more the register takes: a version's header and hash fit behind them.
std::size_t RoomFor(const RegisterState& state, const std::vector<int>& places) {
    constexpr std::size_t OfRest = 1024;
    constexpr std::size_t OfNumbers = 6 * ShortSize + 4 * LongSize;
    std::size_t room = OfRest + state.File.Path.native().size() * 3 +
                       static_cast<std::size_t>(RegisterPlaces) * ShortSize;
    for (const int place : places) {
        const RegisterEntry& entry = state.Register(place);
        room += OfNumbers + entry.Name.size() + entry.Tel.size() + entry.Info.size();
    }
    return room;
}

std::vector<int> FilledPlaces(const RegisterState& state) {
    std::vector<int> places;
    for (int place = 1; place <= RegisterPlaces; ++place) {
        if (!IsEmptyPlace(state.Register(place), place)) {
            places.push_back(place);
        }
    }
    return places;
}

void TakeEntries(ByteTaker& bytes, RegisterState& state) {
    const std::int64_t count = bytes.Number(ShortSize, 0, RegisterPlaces);
    for (std::int64_t i = 0; i < count && !bytes.Failed(); ++i) {
        const auto place = static_cast<int>(bytes.Number(ShortSize, 1, RegisterPlaces));
        RegisterEntry entry = TakeEntry(bytes);
        if (!bytes.Failed()) {
            state.Register(place) = std::move(entry);
        }
    }
}

void TakeOrder(ByteTaker& bytes, RegisterState& state) {
    for (int position = 1; position <= RegisterPlaces; ++position) {
        state.RegisterOrder(position) =
            static_cast<std::int16_t>(bytes.Number(ShortSize, 1, RegisterPlaces));
    }
}

/// Whether each shown position names a place of its own.
bool IsOrderWhole(const RegisterState& state) {
    const std::vector<int> used = UsedIndices(state);
    return std::set<int>(used.begin(), used.end()).size() == used.size();
}

}  // namespace

Bytes EncodeRegister(const RegisterState& state) {
    const std::vector<int> places = FilledPlaces(state);
    Bytes result;
    result.reserve(RoomFor(state, places));
    ByteAppender bytes(result);
    bytes.String(state.LoadedModel);
    AppendFile(bytes, state.File);
    bytes.Number(state.AnzGes, ShortSize);
    bytes.Number(state.WarnLineAccessZero ? 1 : 0, FlagSize);
    bytes.Number(static_cast<std::int64_t>(places.size()), ShortSize);
    for (const int place : places) {
        bytes.Number(place, ShortSize);
        AppendEntry(bytes, state.Register(place));
    }
    for (int position = 1; position <= RegisterPlaces; ++position) {
        bytes.Number(state.RegisterOrder(position), ShortSize);
    }
    return result;
}

std::optional<RegisterState> DecodeRegister(ByteView bytes) {
    ByteTaker taker(bytes);
    RegisterState state;
    state.LoadedModel = taker.String();
    state.File = TakeFile(taker);
    SetCount(state, static_cast<int>(taker.Number(ShortSize, 0, RegisterPlaces)));
    state.WarnLineAccessZero = taker.Number(FlagSize, 0, 1) == 1;
    TakeEntries(taker, state);
    TakeOrder(taker, state);
    if (!taker.IsDone() || !IsOrderWhole(state)) {
        return std::nullopt;
    }
    CountMarked(state);
    return state;
}

}  // namespace norvik
