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

    void Load(const FilePath& source, FileFormat from) {
        desktop_.AnswerFile(source);
        switch (from) {
        case FileFormat::Register195:
        case FileFormat::Register193:
            mnuDateiLoadNV(state_, desktop_);
            break;
        case FileFormat::Phonebook175:
            mnuDateiLoad175(state_, desktop_);
            break;
        case FileFormat::Csv:
            mnuDateiLoadCSV(state_, settings_, {answers_.AvoidDoubles}, desktop_);
            break;
        default:
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

    Bytes Save(FileFormat to) {
        switch (to) {
        case FileFormat::Register195:
            desktop_.AnswerFile(Target("fenster.t9t"));
            mnuDateiSaveNV(state_, desktop_);
            break;
        case FileFormat::Register193:
            desktop_.AnswerFile(Target("fenster.t9t"));
            if (state_.LoadedModel != u"193") {
                desktop_.AnswerBox(answers_.OnlyMarked ? Button::Yes : Button::No);
            }
            MNUDateiSave193(state_, desktop_);
            break;
        case FileFormat::Phonebook175:
            desktop_.AnswerFile(Target("fenster.pbo"));
            mnuDateiSave175(state_, desktop_);
            break;
        case FileFormat::Csv:
            desktop_.AnswerFile(Target("fenster.csv"));
            desktop_.AnswerBox(answers_.Quoted ? Button::Yes : Button::No);
            mnuDateiSaveCSV(state_, desktop_);
            break;
        case FileFormat::Ip286:
            desktop_.AnswerFile(Target("fenster.csv"));
            for (const Text& text : answers_.Exclusions) {
                desktop_.AnswerText(text);
            }
            desktop_.AnswerText(std::nullopt);
            mnuDateiSaveIP286(state_, desktop_);
            break;
        case FileFormat::MobileExport:
            ExportForMobile();
            break;
        case FileFormat::ChargeStatement:
            desktop_.AnswerBox(Button::Ok).AnswerFile(Target("fenster.geb"));
            mnuGebAuszug(state_, settings_, desktop_);
            break;
        default:
            ADD_FAILURE() << "the window is not asked to save it";
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

Bytes WindowWrites(const FilePath& source, FileFormat from, FileFormat to,
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
