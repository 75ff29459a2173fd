// The file dialogs neither show nor take what lies in the folder of earlier versions.
#include "tests/qt/windowfixture.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QListView>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::SizeIs;

const std::string Notice =
    "In diesem Ordner hebt das Programm frühere Stände auf. Sie finden sie im Menü Datei unter "
    "„Frühere Stände...“.";

std::vector<std::string> NamesIn(const QListView& list) {
    std::vector<std::string> names;
    for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row) {
        names.push_back(
            list.model()->index(row, 0, list.rootIndex()).data().toString().toStdString());
    }
    return names;
}

class WindowVersionsDialogs : public WindowTest {
  protected:
    WindowVersionsDialogs() {
        VersionFolder = Folder / "staende";
        Folder.Write("a.t9t", RegisterFile({{.name = "Anna", .tel = "1"}}));
        Folder.Write("staende/b.t9t", RegisterFile({{.name = "Bernd", .tel = "2"}}));
        Folder.Write("Staende2/c.t9t", RegisterFile({{.name = "Carl", .tel = "3"}}));
        std::filesystem::create_directory_symlink(VersionFolder, Folder / "verweis");
        Open();
    }

    /// Chooses the name, which the dialog does not take, and cancels it.
    void Refuse(const QString& action, QDialogButtonBox::StandardButton button,
                const QString& name) {
        Dialogs
            .DriveToItsEnd([button, name](QDialog& dialog) {
                dialog.findChild<QLineEdit*>("fileNameEdit")->setText(name);
                const auto* buttons = dialog.findChild<QDialogButtonBox*>();
                QTest::mouseClick(buttons->button(button), Qt::LeftButton);
                EXPECT_TRUE(dialog.isVisible());
                QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
            })
            .Click(QMessageBox::Ok);
        Dialogs.Transcript.clear();
        Trigger(action);
        ASSERT_THAT(Dialogs.Transcript, SizeIs(2)) << name.toStdString();
        EXPECT_THAT(Dialogs.Transcript[1], testing::HasSubstr(Notice)) << name.toStdString();
    }
};

TEST_F(WindowVersionsDialogs, ShowAllButTheFolder) {
    for (const char* action : {"mnuDateiLoadNV", "mnuDateiSaveNV"}) {
        Dialogs.DriveToItsEnd([this](QDialog& dialog) {
            auto& files = dynamic_cast<QFileDialog&>(dialog);
            files.setDirectory(QString::fromStdString(Folder.Path().string()));
            files.selectNameFilter(files.nameFilters().constLast());
            const auto* list = files.findChild<QListView*>("listView");
            QTRY_COMPARE(NamesIn(*list).size(), 2U);
            EXPECT_THAT(NamesIn(*list), ElementsAre("Staende2", "a.t9t"));
            files.reject();
        });
        Trigger(action);
    }
}

TEST_F(WindowVersionsDialogs, TakeNoNameInIt) {
    for (const char* name : {"staende", "staende/b.t9t", "staende/neu", "verweis/b.t9t"}) {
        Refuse("mnuDateiLoadNV", QDialogButtonBox::Open, PathIn(name));
        Refuse("mnuDateiSaveNV", QDialogButtonBox::Save, PathIn(name));
    }
    EXPECT_THAT(FilesIn(VersionFolder), ElementsAre("b.t9t"));
}

TEST_F(WindowVersionsDialogs, OpenBesideItWhereTheyWouldOpenInIt) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(VersionFolder);
    QString directory;
    Dialogs
        .Look([&](QDialog& dialog) {
            directory = dynamic_cast<QFileDialog&>(dialog).directory().canonicalPath();
        })
        .Cancel();
    Trigger("mnuDateiLoadNV");
    std::filesystem::current_path(before);
    EXPECT_EQ(directory.toStdString(), std::filesystem::canonical(Folder.Path()).string());
}

TEST_F(WindowVersionsDialogs, TakeWhatIsOnlyCalledAlike) {
    Dialogs.ChooseFile(PathIn("Staende2/c.t9t"));
    Trigger("mnuDateiLoadNV");
    EXPECT_EQ(TextOfField(0), "Carl");
}

}  // namespace

}  // namespace norvik::test
