#include "qt/registerlistwindow.h"

#include "qt/display.h"
#include "qt/entrylist.h"
#include "qt/panelarea.h"
#include "qt/textconversion.h"
#include "qt/widgetmakers.h"
#include "qt/windowplace.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace norvik {

namespace {

QString BoxCaption(std::size_t box) {
    const std::array<QString, FilterLetters.size()> captions = {
        QStringLiteral("&AB-Ansage"),   QStringLiteral("&Tonruf"),
        QStringLiteral("&MSN"),         QStringLiteral("&Gebührenzähler"),
        QStringLiteral("Anruff&ilter"), QStringLiteral("&VIP-Filter"),
        QStringLiteral("&CD-Filter"),   QStringLiteral("Für &Datenreduktion markiert"),
    };
    return captions.at(box);
}

}  // namespace

RegisterListWindow::RegisterListWindow(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      model_(new EntryListModel(this)) {
    setObjectName(QStringLiteral("NVList"));
    setWindowTitle(QStringLiteral("Telefonregister-Liste filtern - Maske setzen"));
    auto* panel = new QWidget(this);
    auto* layout = new QHBoxLayout(panel);
    layout->addWidget(MakeBoxes());
    layout->addLayout(MakeList(), 1);
    LayOut(*this, panel, MakeButtons());
    Resize(*this, sizeHint().expandedTo(
                      {fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 24}));
    PlaceBeside(*this, *parent);
    chkFi_.front()->setFocus();
}

QWidget* RegisterListWindow::MakeBoxes() {
    auto* group = new QGroupBox(QStringLiteral("Eigenschaften"), this);
    auto* layout = new QVBoxLayout(group);
    for (std::size_t number = 0; number < chkFi_.size(); ++number) {
        const QString caption = BoxCaption(number);
        QCheckBox* box = MakeCheckBox("", caption, QString(caption).remove(u'&'), group);
        box->setObjectName(IndexedName("chkFi", static_cast<int>(number)));
        connect(box, &QCheckBox::toggled, this, [this] {
            if (!drawing_) {
                emit boxesChanged();
            }
        });
        chkFi_.at(number) = box;
        layout->addWidget(box);
    }
    layout->addStretch();
    return group;
}

QLayout* RegisterListWindow::MakeList() {
    ListResult_ = new QListView(this);
    Name(ListResult_, "ListResult", QStringLiteral("Liste der gefundenen Treffer"));
    ListResult_->setUniformItemSizes(true);
    ListResult_->setItemDelegate(new RowDelegate(ListResult_));
    ListResult_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ListResult_->setModel(model_);
    ListResult_->installEventFilter(this);
    connect(ListResult_, &QListView::doubleClicked, this,
            [this](const QModelIndex& index) { emit lineChosen(index.row()); });
    AnzTreffer_ = MakeDisplay("AnzTreffer", QStringLiteral("Anzahl der Treffer"), this);
    // It only informs: the list always sorts its lines.
    auto* chkSortiert = MakeCheckBox("chkSortiert", QStringLiteral("Sortiert"),
                                     QStringLiteral("Liste ist sortiert"), this);
    chkSortiert->setChecked(true);
    chkSortiert->setEnabled(false);
    auto* below = new QHBoxLayout;
    below->addWidget(MakeLabel(QStringLiteral("Treffer: "), AnzTreffer_, this));
    below->addWidget(AnzTreffer_);
    below->addStretch();
    below->addWidget(chkSortiert);
    auto* layout = new QVBoxLayout;
    layout->addWidget(
        MakeLabel(QStringLiteral("&Liste der gefundenen Treffer"), ListResult_, this));
    layout->addWidget(ListResult_);
    layout->addLayout(below);
    return layout;
}

QLayout* RegisterListWindow::MakeButtons() {
    auto* btnExit = MakeButton("btnExit", QStringLiteral("&Filter setzen"),
                               QStringLiteral("Filter setzen"), this);
    auto* btnCancel =
        MakeButton("btnCancel", QStringLiteral("Abbrechen"), QStringLiteral("Abbrechen"), this);
    btnExit->setDefault(true);
    connect(btnExit, &QPushButton::clicked, this, &RegisterListWindow::exitClicked);
    connect(btnCancel, &QPushButton::clicked, this, &RegisterListWindow::cancelled);
    auto* line = new QHBoxLayout;
    line->addStretch();
    line->addWidget(btnExit);
    line->addWidget(btnCancel);
    return line;
}

void RegisterListWindow::Draw(const RegisterListFields& fields) {
    const bool before = std::exchange(drawing_, true);
    for (std::size_t box = 0; box < chkFi_.size(); ++box) {
        chkFi_.at(box)->setChecked(fields.chkFi.at(box));
    }
    model_->SetRows(fields.ListResult);
    AnzTreffer_->Show(ToQString(fields.AnzTreffer));
    drawing_ = before;
}

std::array<bool, FilterLetters.size()> RegisterListWindow::Boxes() const {
    std::array<bool, FilterLetters.size()> boxes{};
    for (std::size_t box = 0; box < boxes.size(); ++box) {
        boxes.at(box) = chkFi_.at(box)->isChecked();
    }
    return boxes;
}

bool RegisterListWindow::eventFilter(QObject* object, QEvent* event) {
    if (object == ListResult_ && event->type() == QEvent::KeyPress) {
        const auto* press = dynamic_cast<QKeyEvent*>(event);
        const bool isReturn = press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter;
        if (isReturn && ListResult_->currentIndex().isValid()) {
            if (!press->isAutoRepeat()) {
                emit lineChosen(ListResult_->currentIndex().row());
            }
            return true;
        }
    }
    return QDialog::eventFilter(object, event);
}

void RegisterListWindow::reject() {
    emit cancelled();
}

}  // namespace norvik
