#include "qt/messagedialog.h"

#include "base/longreport.h"
#include "qt/panelarea.h"
#include "qt/textconversion.h"
#include "qt/widgetmakers.h"

#include <QCheckBox>
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

/// The text with each line folded that is longer than the toolkit lays out quickly.
QString Folded(const QString& text) {
    constexpr qsizetype LongestLine = 1000;
    QString folded;
    folded.reserve(text.size() + text.size() / LongestLine);
    qsizetype start = 0;
    while (start < text.size()) {
        const qsizetype lineEnd = text.indexOf(u'\n', start);
        const qsizetype end = lineEnd < 0 ? text.size() : lineEnd;
        for (; end - start > LongestLine; start += LongestLine) {
            folded += QStringView(text).mid(start, LongestLine);
            folded += u'\n';
        }
        folded += QStringView(text).mid(start, end + 1 - start);
        start = end + 1;
    }
    return folded;
}

bool IsLineEnd(char16_t c) {
    return c == u'\n' || c == u'\r';
}

/// Each line takes its time, too; no report has as many.
constexpr std::ptrdiff_t MostLinesOfAHalf = 100'000;

/// How far the lines reach that one half of a text may have.
template <typename Iterator>
std::size_t LengthOfLines(Iterator begin, Iterator end) {
    std::ptrdiff_t lines = 0;
    const auto last = std::find_if(
        begin, end, [&lines](char16_t c) { return IsLineEnd(c) && ++lines > MostLinesOfAHalf; });
    return static_cast<std::size_t>(last - begin);
}

bool FitsScreen(const QString& text, const QWidget& widget) {
    constexpr int MostLines = 200;
    constexpr qsizetype MostCharacters = 20000;
    if (text.size() > MostCharacters || text.count(u'\n') > MostLines) {
        return false;
    }
    const QSize screen = widget.screen()->availableSize();
    // Beside the text stand the icon, the margins, the buttons and the window's frame.
    QSize room(screen.width() / 2, screen.height() * 2 / 3);
    const int below = widget.fontMetrics().height() * 6;  // the margins and the buttons
    room.setHeight(std::min(room.height(), RoomFor(widget).height() - below));
    const QRect needed =
        widget.fontMetrics().boundingRect(QRect(QPoint(0, 0), room), Qt::TextWordWrap, text);
    return needed.width() <= room.width() && needed.height() <= room.height();
}

/// The width of a title beside the frame's buttons. The frame is the desktop's own; its font is
/// hardly wider than a bold one.
int WidthOfTitle(const QMessageBox& dialog) {
    QFont font = dialog.font();
    font.setBold(true);
    const QFontMetrics metrics(font);
    constexpr int RoomForButtons = 6;  // three squares at each side at most
    return metrics.horizontalAdvance(dialog.windowTitle()) + RoomForButtons * metrics.height();
}

/// Leaves the lines of the text whole, which the toolkit would break at a width of its own, and the
/// title, which does not count for it.
void KeepLinesWhole(const QMessageBox& dialog) {
    if (auto* label = dialog.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        const QRect whole = label->fontMetrics().boundingRect(QRect(), 0, dialog.text());
        const int needed = std::max(whole.width() + 2 * label->margin() + 1, WidthOfTitle(dialog));
        label->setMinimumWidth(std::min(needed, dialog.screen()->availableSize().width() / 2));
    }
}

void TakeForAll(const MessageBox& box, const QCheckBox* forAll) {
    if (forAll != nullptr) {
        *box.ForAll = forAll->isChecked();
    }
}

Button ShowShortBox(const MessageBox& box, const QString& text, QWidget* parent) {
    QMessageBox dialog(parent);
    dialog.setTextFormat(Qt::PlainText);
    dialog.setIcon(IconOf(box.icon));
    dialog.setWindowTitle(ShownTitle(box.title));
    dialog.setText(text);
    KeepLinesWhole(dialog);
    for (const Button button : box.buttons) {
        dialog.addButton(StandardButtonOf(button));
    }
    QCheckBox* forAll = box.ForAll == nullptr ? nullptr : MakeForAllBox(&dialog);
    dialog.setCheckBox(forAll);
    dialog.setDefaultButton(StandardButtonOf(box.defaultButton));
    dialog.setEscapeButton(StandardButtonOf(ClosingButton(box)));
    const int chosen = dialog.exec();
    TakeForAll(box, forAll);
    for (const Button button : box.buttons) {
        if (StandardButtonOf(button) == chosen) {
            return button;
        }
    }
    return ClosingButton(box);
}

Button ShowScrollingBox(const MessageBox& box, const QString& text, QWidget* parent) {
    QDialog dialog(parent);
    dialog.setWindowTitle(ShownTitle(box.title));
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
    auto* view = new QPlainTextEdit(Folded(text), &dialog);
    view->setReadOnly(true);
    view->setAccessibleName(QStringLiteral("Meldung"));
    view->setTabChangesFocus(true);
    layout->addWidget(view, 0, 1);
    QCheckBox* forAll = box.ForAll == nullptr ? nullptr : MakeForAllBox(&dialog);
    if (forAll != nullptr) {
        layout->addWidget(forAll, 1, 1);
    }
    auto* buttons = new QDialogButtonBox(&dialog);
    layout->addWidget(buttons, 2, 0, 1, 2);
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
    TakeForAll(box, forAll);
    return chosen;
}

}  // namespace

QString ShownText(TextView text, std::size_t longest) {
    const bool manyLines =
        std::count_if(text.begin(), text.end(), IsLineEnd) > 2 * MostLinesOfAHalf;
    if (text.size() <= longest && !manyLines) {
        return ToLines(text);
    }
    const std::size_t half = std::min(longest, text.size()) / 2;
    TextView start = text.substr(0, half);
    TextView end = text.substr(text.size() - half);
    start = start.substr(0, LengthOfLines(start.begin(), start.end()));
    end = end.substr(end.size() - LengthOfLines(end.rbegin(), end.rend()));
    return ToLines(start) +
           QStringLiteral("\n[… %1 Zeichen ausgelassen …]\n")
               .arg(text.size() - start.size() - end.size()) +
           ToLines(end);
}

QString ShownTitle(TextView title) {
    return title.empty() ? QStringLiteral(" ") : ToQString(title);
}

QCheckBox* MakeForAllBox(QWidget* parent) {
    return MakeCheckBox("chkForAll", QStringLiteral("Alle &weiteren genauso beantworten"),
                        QStringLiteral("Alle weiteren genauso beantworten"), parent);
}

Button ShowMessageBox(const MessageBox& box, QWidget* parent) {
    const QString text = ShownText(box.text, LongestShownText);
    return FitsScreen(text, *parent) ? ShowShortBox(box, text, parent)
                                     : ShowScrollingBox(box, text, parent);
}

}  // namespace norvik
