#include "qt/messagedialog.h"

#include "qt/textconversion.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

#include <algorithm>

namespace norvik {

namespace {

QMessageBox::StandardButton StandardButtonOf(Button button) {
    switch (button) {
    case Button::Ok:
        return QMessageBox::Ok;
    case Button::Cancel:
        return QMessageBox::Cancel;
    case Button::Yes:
        return QMessageBox::Yes;
    case Button::No:
        return QMessageBox::No;
    case Button::Abort:
        return QMessageBox::Abort;
    case Button::Retry:
        return QMessageBox::Retry;
    case Button::Ignore:
        return QMessageBox::Ignore;
    }
    return QMessageBox::NoButton;
}

QMessageBox::Icon IconOf(Icon icon) {
    switch (icon) {
    case Icon::None:
        return QMessageBox::NoIcon;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QStyle::StandardPixmap PixmapOf(Icon icon) {
    switch (icon) {
    case Icon::Question:
        return QStyle::SP_MessageBoxQuestion;
    case Icon::Exclamation:
        return QStyle::SP_MessageBoxWarning;
    case Icon::Critical:
        return QStyle::SP_MessageBoxCritical;
    case Icon::None:
    case Icon::Information:
        break;
    }
    return QStyle::SP_MessageBoxInformation;
}

/// The button that closing the box stands for.
Button ClosingButton(const MessageBox& box) {
    for (const Button button : {Button::Cancel, Button::Abort, Button::No}) {
        if (std::find(box.buttons.begin(), box.buttons.end(), button) != box.buttons.end()) {
            return button;
        }
    }
    return box.buttons.front();
}

/// The text with the toolkit's line ends. A text longer than any report of a whole register, as a
/// file of another kind may bring it about, loses its middle: the toolkit would lay it out for
/// minutes. Its end stays, where the question stands.
QString ShownText(TextView text) {
    constexpr std::size_t LongestText = 2'000'000;
    constexpr std::size_t LongestEnd = 2'000;
    if (text.size() <= LongestText) {
        return ToLines(text);
    }
    return ToLines(Slice(text, 0, LongestText - LongestEnd)) + QStringLiteral("\n…\n") +
           ToLines(Slice(text, text.size() - LongestEnd));
}

bool FitsScreen(const QString& text, const QWidget& widget) {
    constexpr int MostLines = 200;
    constexpr qsizetype MostCharacters = 20000;
    if (text.size() > MostCharacters || text.count(u'\n') > MostLines) {
        return false;
    }
    const QSize screen = widget.screen()->availableSize();
    // Beside the text stand the icon, the margins, the buttons and the window's frame.
    const QSize room(screen.width() / 2, screen.height() * 2 / 3);
    const QRect needed =
        widget.fontMetrics().boundingRect(QRect(QPoint(0, 0), room), Qt::TextWordWrap, text);
    return needed.width() <= room.width() && needed.height() <= room.height();
}

/// Leaves the lines of the text whole: the toolkit would break them at a width of its own.
void KeepLinesWhole(const QMessageBox& dialog) {
    if (auto* label = dialog.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        const QRect whole = label->fontMetrics().boundingRect(QRect(), 0, dialog.text());
        label->setMinimumWidth(std::min(whole.width() + 2 * label->margin() + 1,
                                        dialog.screen()->availableSize().width() / 2));
    }
}

Button ShowShortBox(const MessageBox& box, const QString& text, QWidget* parent) {
    QMessageBox dialog(parent);
    dialog.setTextFormat(Qt::PlainText);
    dialog.setIcon(IconOf(box.icon));
    dialog.setWindowTitle(ToQString(box.title));
    dialog.setText(text);
    KeepLinesWhole(dialog);
    for (const Button button : box.buttons) {
        dialog.addButton(StandardButtonOf(button));
    }
    dialog.setDefaultButton(StandardButtonOf(box.defaultButton));
    dialog.setEscapeButton(StandardButtonOf(ClosingButton(box)));
    const int chosen = dialog.exec();
    for (const Button button : box.buttons) {
        if (StandardButtonOf(button) == chosen) {
            return button;
        }
    }
    return ClosingButton(box);
}

Button ShowScrollingBox(const MessageBox& box, const QString& text, QWidget* parent) {
    QDialog dialog(parent);
    dialog.setWindowTitle(ToQString(box.title));
    auto* layout = new QGridLayout(&dialog);
    if (box.icon != Icon::None) {
        auto* picture = new QLabel(&dialog);
        const int side =
            dialog.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &dialog);
        picture->setPixmap(dialog.style()
                               ->standardIcon(PixmapOf(box.icon), nullptr, &dialog)
                               .pixmap(QSize(side, side)));
        layout->addWidget(picture, 0, 0, Qt::AlignTop);
    }
    auto* view = new QPlainTextEdit(text, &dialog);
    view->setReadOnly(true);
    view->setTabChangesFocus(true);
    layout->addWidget(view, 0, 1);
    auto* buttons = new QDialogButtonBox(&dialog);
    layout->addWidget(buttons, 1, 0, 1, 2);
    Button chosen = ClosingButton(box);
    for (const Button button : box.buttons) {
        auto* pushButton = buttons->addButton(
            static_cast<QDialogButtonBox::StandardButton>(StandardButtonOf(button)));
        QObject::connect(pushButton, &QPushButton::clicked, &dialog, [&chosen, &dialog, button] {
            chosen = button;
            dialog.accept();
        });
        if (button == box.defaultButton) {
            pushButton->setDefault(true);
            pushButton->setFocus();
        }
    }
    const QSize screen = dialog.screen()->availableSize();
    dialog.resize(std::min(screen.width() * 3 / 4, dialog.fontMetrics().averageCharWidth() * 100),
                  std::min(screen.height() * 3 / 4, dialog.fontMetrics().height() * 32));
    dialog.exec();
    return chosen;
}

}  // namespace

Button ShowMessageBox(const MessageBox& box, QWidget* parent) {
    const QString text = ShownText(box.text);
    return FitsScreen(text, *parent) ? ShowShortBox(box, text, parent)
                                     : ShowScrollingBox(box, text, parent);
}

}  // namespace norvik
