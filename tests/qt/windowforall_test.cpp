// The check box of the boxes that one operation may show again and again.
#include "tests/qt/windowfixture.h"

#include <QCheckBox>

namespace norvik::test {

namespace {

/// The check box of a dialog, or none.
QCheckBox* ForAll(const QDialog& dialog) {
    return dialog.findChild<QCheckBox*>("chkForAll");
}

void ExpectNoOffer(QDialog& dialog) {
    EXPECT_EQ(ForAll(dialog), nullptr);
}

/// Ticks the offer, which must be seen whole.
void Tick(QDialog& dialog) {
    QCheckBox* box = ForAll(dialog);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(WithoutMnemonic(box->text()).toStdString(), "Alle weiteren genauso beantworten");
    EXPECT_EQ(box->accessibleName().toStdString(), "Alle weiteren genauso beantworten");
    EXPECT_TRUE(box->isVisible());
    EXPECT_FALSE(box->isChecked());
    EXPECT_GE(box->width(), box->sizeHint().width());
    EXPECT_TRUE(dialog.rect().contains(box->geometry()));
    box->click();
}

class WindowForAll : public WindowTest {
  protected:
    WindowForAll() { Load({{.name = "Anna", .tel = "1"}}); }
};

TEST_F(WindowForAll, ACorruptFileOfManyLinesIsLeftAfterFourBoxesAndTheWindowCloses) {
    std::string file = "norvik 175 phonebook\r\n"
                       "N=Neu\r\nP=1\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n";
    for (int i = 0; i < 11999; ++i) {
        file += "?\r\n";
    }
    Folder.Write("x.pbo", file);
    Dialogs.ChooseFile(PathIn("x.pbo"));
    for (int i = 0; i < 3; ++i) {
        Dialogs.Look(ExpectNoOffer).Click(QMessageBox::Ok);
    }
    Dialogs.Look(Tick).Click(QMessageBox::Ok);
    Trigger("mnuDateiLoad175");
    EXPECT_EQ(Dialogs.Transcript.size(), 5U);
    EXPECT_EQ(TextOfField(0), "Neu");
    EXPECT_TRUE(Window->close());
}

TEST_F(WindowForAll, AnMsnForAllIsWrittenForTheRest) {
    Bytes calls = Raw("'12345678901234567890'");
    for (int i = 0; i < 6; ++i) {
        const Bytes call = Raw("02 01 06 0A '0512241830' 06 01 '7' 01");
        calls.insert(calls.end(), call.begin(), call.end());
    }
    Folder.Write("anrufe.t9a", calls);
    Dialogs.ChooseFile(PathIn("anrufe.t9a"));
    for (int i = 0; i < 3; ++i) {
        Dialogs.Look(ExpectNoOffer).Type("1");
    }
    Dialogs
        .Look([](QDialog& dialog) {
            Tick(dialog);
            auto* input = dialog.findChild<QLineEdit*>();
            EXPECT_GE(ForAll(dialog)->geometry().top(), input->geometry().bottom());
        })
        .Type("2")
        .Click(QMessageBox::Ok);
    Trigger("mnuDateiConvCallListCSV");
    std::string expected;
    for (const char* msn : {"1", "1", "1", "2", "2", "2"}) {
        expected += "00;24.12.2005 18:30;" + std::string(msn) + ";7\r\n";
    }
    EXPECT_EQ(FileText("anrufe.csv"), expected);
}

TEST_F(WindowForAll, ALongTextOffersItBelowThePartThatScrolls) {
    std::vector<FileRecord> records;
    const std::string longName(250, 'W');
    for (int i = 0; i < 5; ++i) {
        records.push_back({.name = longName, .tel = "1"});
    }
    Load(records);
    Dialogs.Drive([this](QDialog&) { Click("btnExport"); });
    Dialogs.ChooseFile(PathIn("handy")).Click(QMessageBox::Ok);
    for (int i = 0; i < 3; ++i) {
        Dialogs.Look(ExpectNoOffer).Click(QMessageBox::No);
    }
    Dialogs.Look(Tick).Click(QMessageBox::Yes);
    Trigger("mnuDateiHandyexp");
    const std::string line = longName + ";1\r\n";
    EXPECT_EQ(FileText("handy.pbb"), line + line);
}

}  // namespace

}  // namespace norvik::test
