#include "tests/qt/windowfixture.h"

#include "base/platform.h"
#include "qt/textconversion.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace norvik::test {

namespace {

void AddInteger(Bytes& bytes, int value) {
    const auto bits = static_cast<unsigned>(value);
    bytes.push_back(4);
    for (const unsigned shift : {0U, 8U, 16U, 24U}) {
        bytes.push_back(static_cast<Byte>((bits >> shift) & 0xFFU));
    }
}

void AddString(Bytes& bytes, std::string_view text) {
    bytes.push_back(6);
    bytes.push_back(static_cast<Byte>(text.size()));
    bytes.insert(bytes.end(), text.begin(), text.end());
}

void AddRecord(Bytes& bytes, int index, const FileRecord& record) {
    bytes.push_back(3);
    bytes.push_back(static_cast<Byte>(index % 256));
    bytes.push_back(static_cast<Byte>(index / 256));
    AddInteger(bytes, index + 1);
    AddString(bytes, record.name);
    AddString(bytes, record.tel);
    AddString(bytes, record.info);
    bytes.push_back(3);
    bytes.push_back(static_cast<Byte>(record.ton));
    bytes.push_back(0);
    AddInteger(bytes, record.msnFilter);
    AddInteger(bytes, record.gebEinh);
    AddInteger(bytes, record.ab);
}

}  // namespace

Bytes RegisterFile(const std::vector<FileRecord>& records) {
    Bytes bytes = Raw("06 0D 'TStCollection' 02 64 01");
    int index = 0;
    for (const FileRecord& record : records) {
        AddRecord(bytes, index, record);
        ++index;
    }
    bytes.push_back(0);
    return bytes;
}

Bytes NumberedRegisterFile(int count) {
    std::vector<std::string> names;
    std::vector<std::string> numbers;
    for (int i = 1; i <= count; ++i) {
        names.push_back(QString("Name %1").arg(i, 4, 10, QChar(u'0')).toStdString());
        numbers.push_back(std::to_string(i));
    }
    std::vector<FileRecord> records;
    for (std::size_t i = 0; i < names.size(); ++i) {
        records.push_back({.name = names[i], .tel = numbers[i]});
    }
    return RegisterFile(records);
}

std::string Line(const std::string& text) {
    return QString::fromStdString(text).leftJustified(21).toStdString();
}

std::string RuntimeErrorBox(int number, const QString& description) {
    return OkBox(QString("Laufzeitfehler '%1':\n\n").arg(number) + description, "NORVIK",
                 "Critical");
}

testing::Matcher<const std::vector<std::string>&> PaintedFrom(const std::vector<std::string>& set) {
    return testing::Truly([set](const std::vector<std::string>& painted) {
        auto next = set.begin();
        for (const std::string& text : painted) {
            next = std::find(next, set.end(), text);
            if (next == set.end()) {
                return false;
            }
        }
        return !painted.empty() && painted.front() == set.front() && painted.back() == set.back();
    });
}

PaintedTexts::PaintedTexts(QLabel* label) : label_(label) {
    label->installEventFilter(this);
}

bool PaintedTexts::eventFilter(QObject* object, QEvent* event) {
    if (object == label_ && event->type() == QEvent::Paint) {
        Texts.push_back(label_->text().toStdString());
    }
    return QObject::eventFilter(object, event);
}

WindowTest::WindowTest() {
    Folder.Write("norvik.ini", "[common]\r\nUnit=0,12\r\n[end]\r\n");
}

WindowTest::~WindowTest() {
    EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the pointer is still the hourglass";
}

void WindowTest::Make() {
    Window = std::make_unique<MainWindow>(
        ProgramFolder, [this] { ++HardStops; }, DocumentFolder, VersionFolder, SettingsFile);
    Window->show();
    Activate();
}

void WindowTest::Open(const QString& commandLine) {
    Make();
    Window->Start(commandLine);
    Activate();
}

void WindowTest::Load(const Bytes& file) {
    if (Window == nullptr) {
        Open();
    }
    Folder.Write("register.t9t", file);
    Dialogs.ChooseFile(PathIn("register.t9t"));
    Trigger("mnuDateiLoadNV");
    Dialogs.Transcript.clear();
}

void WindowTest::Load(const std::vector<FileRecord>& records) {
    Load(RegisterFile(records));
}

void WindowTest::Activate() {
    Window->activateWindow();
    ASSERT_TRUE(BecomesActive(*Window));
}

QString WindowTest::PathIn(const char* name) const {
    // As the file dialog hands it over: Windows has drives, and both slashes.
    const QFileInfo file(FromFilePath(Folder / platform::PathOfUtf8(name)));
    return QDir::toNativeSeparators(file.absoluteFilePath());
}

std::string WindowTest::FileText(const char* name) const {
    const Bytes bytes = ReadFile(Folder / platform::PathOfUtf8(name));
    return {bytes.begin(), bytes.end()};
}

QLineEdit* WindowTest::Field(int number) const {
    return Find<QLineEdit>(QString("Anzeigefeld(%1)").arg(number));
}

std::string WindowTest::TextOf(const QString& name) const {
    const auto* widget = Find<QWidget>(name);
    if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
        return field->text().toStdString();
    }
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        return label->text().toStdString();
    }
    if (const auto* list = qobject_cast<const QComboBox*>(widget)) {
        return list->currentText().toStdString();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        return WithoutMnemonic(button->text()).toStdString();
    }
    ADD_FAILURE() << name.toStdString() << " shows no text";
    return {};
}

std::string WindowTest::TextOfField(int number) const {
    return Field(number)->text().toStdString();
}

bool WindowTest::IsChecked(const QString& name) const {
    return Find<QAbstractButton>(name)->isChecked();
}

QColor WindowTest::ButtonColour() const {
    return Find<QAbstractButton>("btnSaveChange")->palette().color(QPalette::Button);
}

QColor WindowTest::NeutralColour() const {
    return QApplication::palette("QPushButton").color(QPalette::Button);
}

std::vector<std::string> WindowTest::RowsOf(const QAbstractItemView& list) {
    const QAbstractItemModel* model = list.model();
    std::vector<std::string> rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        rows.push_back(model->index(row, 0).data().toString().toStdString());
    }
    return rows;
}

std::vector<std::string> WindowTest::TabOrder(QWidget& window) {
    const QWidget* first = window.focusWidget();
    std::vector<std::string> names;
    constexpr std::size_t Most = 100;
    while (window.focusWidget() != nullptr && names.size() < Most &&
           (names.empty() || window.focusWidget() != first)) {
        names.push_back(window.focusWidget()->objectName().toStdString());
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    }
    return names;
}

std::string WindowTest::SelectedRow() const {
    const QModelIndexList selected = List()->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? std::string() : selected.first().data().toString().toStdString();
}

std::vector<std::string> WindowTest::ShownNames() {
    std::vector<std::string> names;
    for (int position = 1; position <= Selector()->maximum(); ++position) {
        Selector()->setValue(position);
        names.push_back(TextOfField(0));
    }
    return names;
}

int WindowTest::FocusedField() const {
    for (const int number : {0, 1, 8, 9, 10, 11, 12, 13}) {
        if (Field(number) == Window->focusWidget()) {
            return number;
        }
    }
    return -1;
}

void WindowTest::Click(const QString& button) {
    auto* found = Find<QAbstractButton>(button);
    ASSERT_TRUE(found->isEnabled()) << button.toStdString();
    // At its left end: a check box does not react on the whole of its width.
    QTest::mouseClick(found, Qt::LeftButton, Qt::NoModifier, QPoint(8, found->height() / 2));
}

void WindowTest::Trigger(const QString& action) {
    auto* found = Find<QAction>(action);
    ASSERT_TRUE(found->isEnabled()) << action.toStdString();
    found->trigger();
    if (Window->isVisible()) {
        Activate();
    }
}

void WindowTest::ClickRow(int row) {
    const QModelIndex index = List()->model()->index(row, 0);
    List()->scrollTo(index);
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      List()->visualRect(index).center());
}

void WindowTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    ASSERT_NE(Window->focusWidget(), nullptr);
    QTest::keyClick(Window->focusWidget(), key, modifiers);
}

void WindowTest::Enter(int field) {
    Field(field)->setFocus(Qt::TabFocusReason);
}

void WindowTest::Type(int field, const QString& text) {
    Enter(field);
    Press(Qt::Key_End);
    TypeText(Field(field), text);
}

void WindowTest::Retype(int field, const QString& text) {
    Enter(field);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    TypeText(Field(field), text);
}

void WindowTest::Paste(QWidget* field, const QString& text) {
    QApplication::clipboard()->setText(text);
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
}

void WindowTest::Choose(const QString& list, int item) {
    auto* found = Find<QComboBox>(list);
    found->setFocus();
    QTest::keyClick(found, Qt::Key_Home);
    for (int i = 0; i < item; ++i) {
        QTest::keyClick(found, Qt::Key_Down);
    }
    ASSERT_EQ(found->currentIndex(), item);
}

}  // namespace norvik::test
