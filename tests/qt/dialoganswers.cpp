#include "tests/qt/dialoganswers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <utility>

namespace norvik::test {

namespace {

constexpr std::chrono::seconds LongestWait{30};

QString Quoted(const QString& text) {
    return u'"' + text + u'"';
}

QString NameOf(QMessageBox::Icon icon) {
    switch (icon) {
    case QMessageBox::NoIcon:
        return "None";
    case QMessageBox::Information:
        return "Information";
    case QMessageBox::Question:
        return "Question";
    case QMessageBox::Warning:
        return "Exclamation";
    case QMessageBox::Critical:
        return "Critical";
    }
    return "?";
}

/// The captions of a box's standard buttons, whatever order the desktop gives them.
QString Buttons(const std::function<QAbstractButton*(QMessageBox::StandardButton)>& find) {
    QStringList captions;
    for (const auto button :
         {QMessageBox::Ok, QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore,
          QMessageBox::Cancel, QMessageBox::Yes, QMessageBox::No}) {
        if (const QAbstractButton* found = find(button)) {
            captions << WithoutMnemonic(found->text());
        }
    }
    return captions.join(u'+');
}

QString Describe(const QMessageBox& box) {
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.informativeText(), QString());
    EXPECT_EQ(box.detailedText(), QString());
    const QPushButton* standard = box.defaultButton();
    return "box " + Quoted(box.text()) + " title " + Quoted(box.windowTitle()) + " icon " +
           NameOf(box.icon()) + " buttons " +
           Buttons([&box](QMessageBox::StandardButton button) { return box.button(button); }) +
           " default " + (standard == nullptr ? "none" : WithoutMnemonic(standard->text()));
}

QString Describe(const QInputDialog& dialog) {
    return "input " + Quoted(dialog.labelText()) + " title " + Quoted(dialog.windowTitle()) +
           " preset " + Quoted(dialog.textValue());
}

QString Describe(const QFileDialog& dialog) {
    const bool saves = dialog.acceptMode() == QFileDialog::AcceptSave;
    const auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
    return QString(saves ? "save " : "open ") + Quoted(dialog.nameFilters().join(u'|')) + " name " +
           Quoted(name->text());
}

QString DescribeScrolling(const QDialog& dialog, const QPlainTextEdit& view) {
    const auto* buttons = dialog.findChild<QDialogButtonBox*>();
    QString standard = "none";
    for (const QAbstractButton* button : buttons->buttons()) {
        const auto* pushButton = qobject_cast<const QPushButton*>(button);
        if (pushButton != nullptr && pushButton->isDefault()) {
            standard = WithoutMnemonic(button->text());
        }
    }
    return "text " + Quoted(view.toPlainText()) + " title " + Quoted(dialog.windowTitle()) +
           " buttons " + Buttons([buttons](QMessageBox::StandardButton button) {
               return buttons->button(static_cast<QDialogButtonBox::StandardButton>(button));
           }) +
           " default " + standard;
}

QString DescribeAny(const QDialog& dialog) {
    if (const auto* box = qobject_cast<const QMessageBox*>(&dialog)) {
        return Describe(*box);
    }
    if (const auto* input = qobject_cast<const QInputDialog*>(&dialog)) {
        return Describe(*input);
    }
    if (const auto* file = qobject_cast<const QFileDialog*>(&dialog)) {
        return Describe(*file);
    }
    if (const auto* view = dialog.findChild<QPlainTextEdit*>()) {
        return DescribeScrolling(dialog, *view);
    }
    return "dialog " + dialog.objectName() + " title " + Quoted(dialog.windowTitle());
}

void ClickButton(QDialog& dialog, QMessageBox::StandardButton button) {
    QAbstractButton* found = nullptr;
    for (QDialogButtonBox* box : dialog.findChildren<QDialogButtonBox*>()) {
        found = box->button(static_cast<QDialogButtonBox::StandardButton>(button));
    }
    ASSERT_NE(found, nullptr) << "the dialog has no such button: "
                              << DescribeAny(dialog).toStdString();
    ASSERT_TRUE(found->isEnabled()) << found->text().toStdString();
    QTest::mouseClick(found, Qt::LeftButton);
}

void AcceptFile(QDialog& dialog, const QString& name) {
    auto* file = qobject_cast<QFileDialog*>(&dialog);
    ASSERT_NE(file, nullptr) << "no file dialog";
    file->findChild<QLineEdit*>("fileNameEdit")->setText(name);
    const bool saves = file->acceptMode() == QFileDialog::AcceptSave;
    ClickButton(dialog, saves ? QMessageBox::Save : QMessageBox::Open);
}

}  // namespace

DialogAnswers::DialogAnswers() {
    qApp->installEventFilter(this);
    watchdog_.callOnTimeout(CloseForgotten);
    watchdog_.start(LongestWait);
}

DialogAnswers::~DialogAnswers() {
    EXPECT_TRUE(answers_.empty()) << answers_.size() << " prepared answer(s) were not asked for";
}

DialogAnswers& DialogAnswers::Add(std::function<void(QDialog&)> act) {
    answers_.push_back({std::exchange(nextLook_, nullptr), std::move(act)});
    return *this;
}

DialogAnswers& DialogAnswers::Click(QMessageBox::StandardButton button) {
    return Add([button](QDialog& dialog) { ClickButton(dialog, button); });
}

DialogAnswers& DialogAnswers::Press(Qt::Key key) {
    return Add([key](QDialog& dialog) {
        QWidget* focused = dialog.focusWidget();
        QTest::keyClick(focused == nullptr ? &dialog : focused, key);
    });
}

DialogAnswers& DialogAnswers::Close() {
    return Add([](QDialog& dialog) { dialog.close(); });
}

DialogAnswers& DialogAnswers::Type(const QString& text) {
    return Add([text](QDialog& dialog) {
        ASSERT_NE(qobject_cast<QInputDialog*>(&dialog), nullptr) << "no input box";
        TypeText(dialog.findChild<QLineEdit*>(), text);
        ClickButton(dialog, QMessageBox::Ok);
    });
}

DialogAnswers& DialogAnswers::ChooseFile(const QString& name) {
    return Add([name](QDialog& dialog) { AcceptFile(dialog, name); });
}

DialogAnswers& DialogAnswers::ChooseFileAndKeep(const QString& name) {
    Add([name](QDialog& dialog) {
        AcceptFile(dialog, name);
        EXPECT_TRUE(dialog.isVisible()) << "the file dialog does not ask for another name";
        ClickButton(dialog, QMessageBox::Cancel);
    });
    return Click(QMessageBox::No);
}

DialogAnswers& DialogAnswers::Cancel() {
    return Click(QMessageBox::Cancel);
}

DialogAnswers& DialogAnswers::DriveToItsEnd(std::function<void(QDialog&)> act) {
    return Add([act = std::move(act)](QDialog& dialog) {
        ASSERT_TRUE(BecomesActive(dialog));
        act(dialog);
    });
}

DialogAnswers& DialogAnswers::Drive(std::function<void(QDialog&)> act) {
    return DriveToItsEnd([act = std::move(act)](QDialog& dialog) {
        act(dialog);
        EXPECT_TRUE(dialog.isVisible()) << "the dialog did not stay open";
        auto* cancel = dialog.findChild<QPushButton*>("btnCancel");
        ASSERT_NE(cancel, nullptr);
        QTest::mouseClick(cancel, Qt::LeftButton);
    });
}

DialogAnswers& DialogAnswers::Look(std::function<void(QDialog&)> look) {
    nextLook_ = std::move(look);
    return *this;
}

bool DialogAnswers::eventFilter(QObject* object, QEvent* event) {
    auto* dialog = qobject_cast<QDialog*>(object);
    if (dialog != nullptr && event->type() == QEvent::Show && dialog->isModal()) {
        // When the dialog's own event loop runs.
        QTimer::singleShot(0, this, [this, shown = QPointer<QDialog>(dialog)] {
            if (shown != nullptr && shown->isVisible()) {
                AnswerDialog(*shown);
            }
        });
    }
    return QObject::eventFilter(object, event);
}

void DialogAnswers::AnswerDialog(QDialog& dialog) {
    const std::string question = DescribeAny(dialog).toStdString();
    Transcript.push_back(question);
    if (!open_.empty()) {
        EXPECT_EQ(dialog.parentWidget(), open_.back())
            << "not shown above its dialog: " << question;
    }
    open_.push_back(&dialog);
    if (answers_.empty()) {
        ADD_FAILURE() << "no answer is prepared for: " << question;
    } else {
        const Answer answer = std::move(answers_.front());
        answers_.pop_front();
        if (answer.look) {
            answer.look(dialog);
        }
        answer.act(dialog);
        EXPECT_FALSE(dialog.isVisible()) << "the answer did not close: " << question;
    }
    open_.pop_back();
    if (dialog.isVisible()) {
        dialog.done(QDialog::Rejected);
    }
}

void DialogAnswers::CloseForgotten() {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        ADD_FAILURE() << "nobody answered " << modal->windowTitle().toStdString();
        modal->close();
    }
}

bool BecomesActive(const QWidget& window) {
    const auto isActive = [&window] { return QApplication::activeWindow() == &window; };
    if (!isActive()) {
        // One round of events is enough as a rule; qWaitFor would sleep behind it.
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return QTest::qWaitFor(isActive);
}

void TypeText(QWidget* widget, const QString& text) {
    for (const QChar c : text) {
        if (c.unicode() < 0x80) {
            QTest::keyClick(widget, c.toLatin1());
        } else {
            QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(c), Qt::NoModifier);
        }
    }
}

QString WithoutMnemonic(QString caption) {
    return caption.remove(u'&');
}

std::string OkBox(const QString& text, const QString& title, const std::string& icon) {
    return "box " + Quoted(text).toStdString() + " title " + Quoted(title).toStdString() +
           " icon " + icon + " buttons OK default OK";
}

}  // namespace norvik::test
