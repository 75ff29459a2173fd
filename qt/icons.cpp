#include "qt/icons.h"

#include <QApplication>

#include <algorithm>
#include <iterator>

/// Must not stand in a namespace.
static void InitIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace norvik {

namespace {

struct ItemIcon {
    std::string_view Item;
    const char* Icon;  ///< as the themes of all desktops name it
};

constexpr ItemIcon ItemIcons[] = {
    {"mnuDateiLoadNV", "document-open"},
    {"mnuDateiAdd", "list-add"},
    {"mnuDateiRecent", "document-open-recent"},
    {"mnuDateiSaveNV", "document-save"},
    {"mnuDateiSaveVCard", "document-save-as"},
    {"mnuDateiHandyexp", "phone"},
    {"mnuDateiVersions", "document-revert"},
    {"mnuDateiPrint", "document-print"},
    {"mnuDateiBeenden", "application-exit"},
    {"mnuBearbeitenUndo", "edit-undo"},
    {"mnuBearbeitenRedo", "edit-redo"},
    {"mnuListView", "view-filter"},
    {"mnuSyncAdd", "edit-find"},
    {"mnuSettingsBasic", "preferences-system"},
    {"mnuHilfeReadme", "help-contents"},
    {"mnuHilfeAbout", "help-about"},
};

}  // namespace

QIcon ProgramIcon() {
    InitIcons();
    QIcon own;
    for (const int side : {16, 22, 32, 48, 64, 128}) {
        own.addFile(QStringLiteral(":/icons/%1.png").arg(side));
    }
    return QIcon::fromTheme(QApplication::desktopFileName(), own);
}

QIcon MenuIcon(std::string_view item) {
    const auto* const found =
        std::find_if(std::begin(ItemIcons), std::end(ItemIcons),
                     [item](const ItemIcon& candidate) { return candidate.Item == item; });
    return found == std::end(ItemIcons) ? QIcon() : QIcon::fromTheme(QLatin1String(found->Icon));
}

}  // namespace norvik
