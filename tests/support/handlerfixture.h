// The main window without a screen: a program whose fields follow its register as in the real one.
#pragma once

#include "mainwindow/handlers.h"
#include "ringtones/tonenames.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gtest/gtest.h>

#include <utility>

namespace norvik::test {

class HandlerFixture : public testing::Test {
  protected:
    HandlerFixture() {
        FillTones(program.Fields, DefaultToneNames());
        FillAnnouncements(program.Fields);
        FillMsns(program.Fields);
        desktop.OnShowEntry = [this] { norvik::ShowEntry(program); };
        desktop.OnRebuildList = [this] { RebuildRows(program); };
    }

    /// Shows `state` at `position`, with nothing to save and an empty transcript.
    void Given(RegisterState state, int position = 1) {
        program.State = std::move(state);
        program.State.AnzNr = position;
        program.State.Satzwahl.Value = position;
        program.State.RegisterSaved = true;
        norvik::ShowEntry(program);
        RebuildRows(program);
    }

    /// What stands in a text field; assigning to it is what the user types.
    Text& Field(int number) {
        return program.Fields.Anzeigefeld.at(static_cast<std::size_t>(number));
    }

    /// The rows of the list.
    [[nodiscard]] const std::vector<Text>& Rows() const { return program.Fields.TelRegListe; }

    Program program;
    ScriptedDesktop desktop;
};

/// An entry as `Entry` makes it, with the running number of its place.
inline RegisterEntry EntryOfPlace(int place, TextView name, TextView tel = u"",
                                  TextView info = u"") {
    RegisterEntry entry = Entry(name, tel, info);
    entry.RecIndex = static_cast<std::int16_t>(place - 1);
    return entry;
}

}  // namespace norvik::test
