#include "qt/entrygroups.h"

#include "qt/display.h"
#include "qt/entryfield.h"
#include "qt/widgetmakers.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace norvik {

namespace {

/// Ignores the mouse wheel: scrolling past a choice must not change it.
class ChoiceList : public QComboBox {
  public:
    using QComboBox::QComboBox;

  protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

QComboBox* MakeChoice(const char* objectName, const QString& accessibleName, QWidget* parent) {
    constexpr int ShownCharacters = 15;
    auto* list = new ChoiceList(parent);
    Name(list, objectName, accessibleName);
    // Tone names come from a file: the list must not grow with the longest.
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(ShownCharacters);
    list->setMaxVisibleItems(20);
    return list;
}

/// As wide as the widest text of `characters` characters needs.
void SetWidthFor(QLineEdit* field, int characters) {
    QStyleOptionFrame option;
    option.initFrom(field);
    const QFontMetrics metrics = field->fontMetrics();
    const int content = metrics.horizontalAdvance(QString(characters + 1, u'0'));
    const QSize size = field->style()->sizeFromContents(QStyle::CT_LineEdit, &option,
                                                        QSize(content, metrics.height()), field);
    field->setMinimumWidth(size.width() + metrics.averageCharWidth());
}

EntryField* MakeTextField(int number, const QString& accessibleName, bool fixedPitch,
                          QWidget* parent) {
    auto* field = new EntryField(RuleOfField(number), parent);
    field->setObjectName(IndexedName("Anzeigefeld", number));
    field->setAccessibleName(accessibleName);
    if (fixedPitch) {
        field->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    }
    SetWidthFor(field, static_cast<int>(FieldWidth));
    return field;
}

}  // namespace

QWidget* MakeNameGroup(MainWindowWidgets& widgets, QWidget* parent) {
    auto* group = new QGroupBox(QStringLiteral("Name und Nummer"), parent);
    auto* layout = new QGridLayout(group);
    widgets.Texts[NameField] = MakeTextField(NameField, QStringLiteral("Name"), false, group);
    widgets.Texts[TelField] =
        MakeTextField(TelField, QStringLiteral("Telefonnummer"), false, group);
    layout->addWidget(MakeLabel(QStringLiteral("&Name:"), widgets.Texts[NameField], group), 0, 0);
    layout->addWidget(widgets.Texts[NameField], 0, 1);
    layout->addWidget(MakeLabel(QStringLiteral("Nummer (&Tel):"), widgets.Texts[TelField], group),
                      1, 0);
    layout->addWidget(widgets.Texts[TelField], 1, 1);
    layout->setColumnStretch(1, 1);
    return group;
}

QWidget* MakeInfoGroup(MainWindowWidgets& widgets, QWidget* parent) {
    auto* group = new QGroupBox(QStringLiteral("Infozeilen"), parent);
    auto* layout = new QGridLayout(group);
    layout->setVerticalSpacing(layout->verticalSpacing() / 2);
    for (int line = 0; line < InfoLines; ++line) {
        const int number = FirstInfoField + line;
        EntryField* field =
            MakeTextField(number, QStringLiteral("Infozeile %1").arg(line + 1), true, group);
        widgets.Texts[static_cast<std::size_t>(number)] = field;
        layout->addWidget(MakeLabel(QStringLiteral("&%1").arg(line + 1), field, group), line, 0);
        layout->addWidget(field, line, 1);
    }
    layout->setColumnStretch(1, 1);
    return group;
}

QWidget* MakeToneGroup(MainWindowWidgets& widgets, QWidget* parent) {
    auto* group = new QGroupBox(QStringLiteral("Klingelton und Leitung"), parent);
    auto* layout = new QGridLayout(group);
    widgets.DDTon = MakeChoice("DDTon", QStringLiteral("Klingelton"), group);
    widgets.chkTon = MakeCheckBox("chkTon", QStringLiteral("Indiv. T&onruf"),
                                  QStringLiteral("Individueller Tonruf"), group);
    widgets.DDAB = MakeChoice("DDAB", QStringLiteral("Ansage des Anrufbeantworters"), group);
    widgets.DDMSN = MakeChoice("DDMSN", QStringLiteral("Abgehende MSN"), group);
    layout->addWidget(MakeLabel(QStringLiteral("&Klingelton:"), widgets.DDTon, group), 0, 0);
    layout->addWidget(widgets.DDTon, 0, 1);
    layout->addWidget(widgets.chkTon, 1, 1);
    layout->addWidget(MakeLabel(QStringLiteral("&Ansage:"), widgets.DDAB, group), 2, 0);
    layout->addWidget(widgets.DDAB, 2, 1);
    layout->addWidget(MakeLabel(QStringLiteral("Abgehende &MSN:"), widgets.DDMSN, group), 3, 0);
    layout->addWidget(widgets.DDMSN, 3, 1);
    layout->setColumnStretch(1, 1);
    return group;
}

QWidget* MakeFilterGroup(MainWindowWidgets& widgets, QWidget* parent) {
    struct Option {
        QString caption;
        QString accessibleName;
    };
    const std::array<Option, Filters> options = {
        {{QStringLiteral("aus"), QStringLiteral("Anruffilter aus")},
         {QStringLiteral("Anru&f"), QStringLiteral("Anruffilter Anruf")},
         {QStringLiteral("VI&P"), QStringLiteral("Anruffilter VIP")},
         {QStringLiteral("CD"), QStringLiteral("Anruffilter CD")}}};
    auto* group = new QGroupBox(QStringLiteral("Anruffilter"), parent);
    auto* layout = new QHBoxLayout(group);
    widgets.FilterGroup = new QButtonGroup(group);
    for (int filter = 0; filter < Filters; ++filter) {
        const Option& option = options.at(static_cast<std::size_t>(filter));
        auto* button = new QRadioButton(option.caption, group);
        button->setObjectName(IndexedName("OptFilter", filter));
        button->setAccessibleName(option.accessibleName);
        widgets.FilterGroup->addButton(button, filter);
        widgets.OptFilter[static_cast<std::size_t>(filter)] = button;
        layout->addWidget(button);
    }
    layout->addStretch();
    return group;
}

QWidget* MakeChargeGroup(MainWindowWidgets& widgets, QWidget* parent) {
    auto* group = new QGroupBox(QStringLiteral("Gebühren"), parent);
    auto* layout = new QGridLayout(group);
    widgets.chkCharge = MakeCheckBox("chkCharge", QStringLiteral("Gebühren&zähler"),
                                     QStringLiteral("Gebührenzähler"), group);
    widgets.AnzGeb = MakeDisplay("AnzGeb", QStringLiteral("Gebührenbetrag"), group);
    widgets.AnzGeb->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    widgets.btnEraseCharge = MakeButton("btnEraseCharge", QStringLiteral("Z&ähler löschen"),
                                        QStringLiteral("Gebührenzähler löschen"), group);
    layout->addWidget(widgets.chkCharge, 0, 0);
    layout->addWidget(widgets.AnzGeb, 0, 1);
    layout->addWidget(widgets.btnEraseCharge, 0, 2);
    layout->setColumnStretch(1, 1);
    return group;
}

}  // namespace norvik
