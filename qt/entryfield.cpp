#include "qt/entryfield.h"

#include "qt/droppedfiles.h"
#include "qt/textconversion.h"

#include <QDragEnterEvent>
#include <QFocusEvent>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

bool IsUndoKey(const QKeyEvent& event) {
    return event.matches(QKeySequence::Undo);
}

/// Ctrl+Y as well as Ctrl+Shift+Z, whatever the desktop's habit.
bool IsRedoKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return (event.key() == Qt::Key_Y && modifiers == Qt::ControlModifier) ||
           (event.key() == Qt::Key_Z && modifiers == (Qt::ControlModifier | Qt::ShiftModifier));
}

/// Files are the window's, also where their paths come along as a text.
bool TakesDrag(const QDropEvent& event) {
    return FilesOf(*event.mimeData()).empty();
}

}  // namespace

FieldValidator::FieldValidator(const FieldRule& rule, QLineEdit* field)
    : QValidator(field), rule_(rule), field_(field) {}

QValidator::State FieldValidator::validate(QString& input, int& cursor) const {
    if (showing_ || input == text_) {
        text_ = input;
        return Acceptable;
    }
    const FieldEdit edit =
        ChangeField(ToText(text_), ToText(input), static_cast<std::size_t>(cursor), rule_);
    if (edit.Beep) {
        emit beeped();
    }
    const QString before = std::exchange(text_, ToQString(edit.FieldText));
    if (text_ == before && edit.Beep) {
        return Invalid;  // nothing of the change is taken: the field goes back, undo steps and all
    }
    input = text_;
    cursor = static_cast<int>(edit.Cursor);
    if (text_ != before) {
        emit changing(before);
    }
    return Acceptable;
}

void FieldValidator::Show(const QString& text) {
    showing_ = true;
    field_->setText(text);
    showing_ = false;
    text_ = field_->text();  // a text that the field holds already is not validated
}

void LimitToRepertoire(QLineEdit* input, const std::function<void()>& beep, const FieldRule& rule) {
    auto* validator = new FieldValidator(rule, input);
    QObject::connect(validator, &FieldValidator::beeped, input, beep);
    input->setValidator(validator);
    validator->Show(input->text());
}

void ShowLimited(QLineEdit* input, const QString& text) {
    input->findChild<FieldValidator*>()->Show(text);
}

EntryField::EntryField(const FieldRule& rule, QWidget* parent)
    : QLineEdit(parent), rule_(rule), validator_(new FieldValidator(rule, this)) {
    setValidator(validator_);
    connect(validator_, &FieldValidator::beeped, this, &EntryField::beeped);
    connect(validator_, &FieldValidator::changing, this, [this](const QString& before) {
        if (!undoing_) {
            undo_.push_back(before);
            redo_.clear();
        }
    });
}

void EntryField::Show(TextView text) {
    const QString shown = ToQString(text);
    if (shown == QLineEdit::text()) {
        return;
    }
    undo_.clear();
    redo_.clear();
    validator_->Show(shown);
    // The field may have the focus of a window that is not active while a box is shown.
    setCursorPosition(window()->focusWidget() == this ? EndOfText() : 0);
}

void EntryField::ForgetUndo() {
    undo_.clear();
    redo_.clear();
    const int cursor = cursorPosition();
    const int start = selectionStart();
    const int length = selectionLength();
    validator_->Show(text());  // the toolkit forgets its own history
    if (start < 0) {
        setCursorPosition(cursor);
    } else {
        // A negative length leaves the cursor at the selection's beginning.
        setSelection(cursor == start ? start + length : start, cursor == start ? -length : length);
    }
}

bool EntryField::HasUndo() const {
    return !undo_.empty() || (!rule_.Padded && isUndoAvailable());
}

bool EntryField::HasRedo() const {
    return !redo_.empty() || (!rule_.Padded && isRedoAvailable());
}

bool EntryField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // The line edit takes these keys always. Those to the ends of a document are the window's:
        // in a line, Home and End are enough. Without a step of its own undoing is the menu's.
        const auto& key = dynamic_cast<const QKeyEvent&>(*event);
        if (key.matches(QKeySequence::MoveToStartOfDocument) ||
            key.matches(QKeySequence::MoveToEndOfDocument) || (IsUndoKey(key) && !HasUndo()) ||
            (IsRedoKey(key) && !HasRedo())) {
            event->ignore();
            return false;
        }
        if (IsRedoKey(key)) {
            event->accept();
            return true;
        }
    }
    return QLineEdit::event(event);
}

void EntryField::keyPressEvent(QKeyEvent* event) {
    if (HandleFieldKey(*event) || (rule_.Padded && HandlePaddedKey(*event))) {
        event->accept();
        return;
    }
    if (IsUndoKey(*event) || IsRedoKey(*event)) {
        IsUndoKey(*event) ? Undo() : Redo();
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

bool EntryField::HandleFieldKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool shift = modifiers == Qt::ShiftModifier;
    if (modifiers != Qt::NoModifier && !shift) {
        return false;
    }
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit keyPressed(FieldKey::Return, shift);
        return true;
    case Qt::Key_Down:
        emit keyPressed(FieldKey::Down, shift);
        return true;
    case Qt::Key_Up:
        emit keyPressed(FieldKey::Up, shift);
        return true;
    case Qt::Key_PageUp:
        emit stepped(-1);
        return true;
    case Qt::Key_PageDown:
        emit stepped(1);
        return true;
    default:
        return false;
    }
}

/// In a padded field the text ends, for the keyboard, behind its last character that is no blank.
bool EntryField::HandlePaddedKey(QKeyEvent& event) {
    if (event.matches(QKeySequence::MoveToEndOfLine)) {
        setCursorPosition(EndOfText());
        return true;
    }
    if (event.matches(QKeySequence::SelectEndOfLine)) {
        cursorForward(true, EndOfText() - cursorPosition());
        return true;
    }
    if (event.matches(QKeySequence::SelectAll)) {
        setSelection(0, EndOfText());
        return true;
    }
    return false;
}

void EntryField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const bool returned =
        event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    // The Tab key and a mnemonic select the whole text of the others.
    const bool byProgram = event->reason() == Qt::OtherFocusReason;
    if (byProgram || (rule_.Padded && !returned)) {
        deselect();
        setCursorPosition(EndOfText());
    }
}

void EntryField::dragEnterEvent(QDragEnterEvent* event) {
    TakesDrag(*event) ? QLineEdit::dragEnterEvent(event) : event->ignore();
}

void EntryField::dragMoveEvent(QDragMoveEvent* event) {
    TakesDrag(*event) ? QLineEdit::dragMoveEvent(event) : event->ignore();
}

void EntryField::mousePressEvent(QMouseEvent* event) {
    QLineEdit::mousePressEvent(event);
    if (rule_.Padded && !hasSelectedText()) {
        setCursorPosition(std::min(cursorPosition(), EndOfText()));
    }
}

int EntryField::EndOfText() const {
    return static_cast<int>(CursorAtEntering(ToText(text())));
}

void EntryField::Undo() {
    undoing_ = true;
    const QString now = text();
    if (!rule_.Padded && isUndoAvailable()) {
        undo();  // several keys at a time
        const auto reached = std::find(undo_.rbegin(), undo_.rend(), text());
        if (reached != undo_.rend()) {
            undo_.erase(reached.base() - 1, undo_.end());
        }
    } else if (!undo_.empty()) {
        const QString previous = undo_.back();
        undo_.pop_back();
        redo_.push_back(now);
        validator_->Show(previous);
        setCursorPosition(EndOfText());
    }
    undoing_ = false;
}

void EntryField::Redo() {
    undoing_ = true;
    if (!rule_.Padded && isRedoAvailable()) {
        undo_.push_back(text());
        redo();
    } else if (!redo_.empty()) {
        const QString next = redo_.back();
        redo_.pop_back();
        undo_.push_back(text());
        validator_->Show(next);
        setCursorPosition(EndOfText());
    }
    undoing_ = false;
}

}  // namespace norvik
