#include "tests/console/windowfiles.h"

#include "dialogs/mobileexportfields.h"
#include "formats/calllist/calllist.h"
#include "formats/charges/chargestatement.h"
#include "formats/csv/csvmenu.h"
#include "formats/ip286/ip286menu.h"
#include "formats/phonebook175/phonebookfilemenu.h"
#include "formats/registerfile/registerfilemenu.h"
#include "registertools/lineaccesszero.h"
#include "tests/support/scripteddesktop.h"

#include <gtest/gtest.h>

namespace norvik::test {

namespace {

class Window {
  public:
    explicit Window(const WindowAnswers& answers) : answers_(answers), settings_(answers.Set) {
        ApplySettings(settings_);
    }

    void Load(const FilePath& source, SourceFormat from) {
        desktop_.AnswerFile(source);
        switch (from) {
        case SourceFormat::RegisterFile:
            mnuDateiLoadNV(state_, desktop_);
            break;
        case SourceFormat::Phonebook175:
            mnuDateiLoad175(state_, desktop_);
            break;
        case SourceFormat::Csv:
            mnuDateiLoadCSV(state_, settings_, answers_.AvoidDoubles, desktop_);
            break;
        case SourceFormat::CallList:
            ADD_FAILURE() << "no register";
        }
    }

    void ConvertZeros() {
        if (answers_.ZeroCode == u"0") {
            desktop_.AnswerBox(Button::Yes);
            mnuBearbeitenNullHinzu(state_, desktop_);
        } else if (answers_.ZeroCode) {
            desktop_.AnswerBox(Button::No).AnswerText(*answers_.ZeroCode);
            mnuBearbeitenNullEntf(state_, desktop_);
        }
    }

    Bytes Save(TargetFormat to) {
        switch (to) {
        case TargetFormat::Register195:
            desktop_.AnswerFile(Target("fenster.t9t"));
            mnuDateiSaveNV(state_, desktop_);
            break;
        case TargetFormat::Register193:
            desktop_.AnswerFile(Target("fenster.t9t"));
            if (state_.LoadedModel != u"193") {
                desktop_.AnswerBox(answers_.OnlyMarked ? Button::Yes : Button::No);
            }
            MNUDateiSave193(state_, desktop_);
            break;
        case TargetFormat::Phonebook175:
            desktop_.AnswerFile(Target("fenster.pbo"));
            mnuDateiSave175(state_, desktop_);
            break;
        case TargetFormat::Csv:
            desktop_.AnswerFile(Target("fenster.csv"));
            desktop_.AnswerBox(answers_.Quoted ? Button::Yes : Button::No);
            mnuDateiSaveCSV(state_, desktop_);
            break;
        case TargetFormat::Ip286:
            desktop_.AnswerFile(Target("fenster.csv"));
            for (const Text& text : answers_.Exclusions) {
                desktop_.AnswerText(text);
            }
            desktop_.AnswerText(std::nullopt);
            mnuDateiSaveIP286(state_, desktop_);
            break;
        case TargetFormat::MobileExport:
            ExportForMobile();
            break;
        case TargetFormat::ChargeStatement:
            desktop_.AnswerBox(Button::Ok).AnswerFile(Target("fenster.geb"));
            mnuGebAuszug(state_, settings_.UnitPrice, desktop_);
            break;
        }
        return ReadFile(target_);
    }

  private:
    FilePath Target(const char* name) {
        target_ = folder_ / name;
        return target_;
    }

    void ExportForMobile() {
        MobileExportFields fields = NVHE_Load(settings_);
        for (const std::size_t box : answers_.Boxes) {
            fields.chkHE.at(box) = true;
            chkHE_Click(fields, box);
        }
        desktop_.AnswerFile(Target("fenster.pbb")).AnswerBox(Button::Ok);
        for (int entry = 1; entry <= state_.AnzGes && !fields.chkHE[UseReductionFlagsBox];
             ++entry) {
            desktop_.AnswerBox(Button::Yes);
        }
        btnExport_Click(fields, state_, settings_, desktop_);
    }

    TestFolder folder_;
    FilePath target_;
    WindowAnswers answers_;
    Settings settings_;
    RegisterState state_;
    ScriptedDesktop desktop_;
};

}  // namespace

Bytes WindowWrites(const FilePath& source, SourceFormat from, TargetFormat to,
                   const WindowAnswers& answers) {
    Window window(answers);
    window.Load(source, from);
    window.ConvertZeros();
    return window.Save(to);
}

Bytes WindowConvertsCalls(const FilePath& source, int calls, TextView msn) {
    const TestFolder folder;
    ScriptedDesktop desktop;
    desktop.AnswerFile(folder.Write("fenster.t9a", ReadFile(source)));
    for (int call = 0; call < calls; ++call) {
        desktop.AnswerText(Text(msn));
    }
    mnuDateiConvCallListCSV(desktop);
    return ReadFile(folder / "fenster.csv");
}

}  // namespace norvik::test
