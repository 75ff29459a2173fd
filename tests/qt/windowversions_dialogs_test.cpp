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
    }
    void SetUp() override {
        WindowTest::SetUp();
        std::filesystem::create_directory_symlink(VersionFolder, Folder / "verweis");
        Open();
    }

    /// Chooses the name, which the dialog does not take, and cancels it.
    void Refuse(const QString& action, const QString& name) {
        Dialogs
            .DriveToItsEnd([name](QDialog& dialog) {
                dialog.findChild<QLineEdit*>("fileNameEdit")->setText(name);
                dialog.accept();
                EXPECT_TRUE(dialog.isVisible());
                dialog.reject();
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
            EXPECT_TRUE(QTest::qWaitFor([list] { return NamesIn(*list).size() > 2; }));
            EXPECT_THAT(NamesIn(*list), ElementsAre("Staende2", "a.t9t", "norvik.ini"));
            QTest::mouseClick(
                files.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel),
                Qt::LeftButton);
        });
        Trigger(action);
    }
}

TEST_F(WindowVersionsDialogs, TakeNoNameInIt) {
    for (const char* name : {"staende", "staende/b.t9t", "staende/neu", "verweis/b.t9t"}) {
        Refuse("mnuDateiLoadNV", PathIn(name));
        Refuse("mnuDateiSaveNV", PathIn(name));
    }
    EXPECT_THAT(FilesIn(VersionFolder), ElementsAre("b.t9t"));
}

TEST_F(WindowVersionsDialogs, TakeWhatIsOnlyCalledAlike) {
    Dialogs.ChooseFile(PathIn("Staende2/c.t9t"));
    Trigger("mnuDateiLoadNV");
    EXPECT_EQ(TextOfField(0), "Carl");
}

}  // namespace

}  // namespace norvik::test
