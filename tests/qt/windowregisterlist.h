// The register list beside the main window, for the tests of both.
#pragma once

#include "tests/qt/windowfixture.h"

#include <QApplication>
#include <QDialog>

namespace norvik::test {

/// A register in which each property of the register list occurs; the unit costs 0,12.
class WindowRegisterList : public WindowTest {
  protected:
    WindowRegisterList() {
        Load({{.name = "Anna", .tel = "1", .msnFilter = 0x1F, .gebEinh = 12, .ab = 3},
              {.name = "Bernd", .tel = "2", .ton = 0x89},
              {.name = "Carla", .tel = "3", .msnFilter = 0x00},
              {.name = "Dora", .tel = "4", .msnFilter = 0x45},
              {.name = "Emil", .tel = "5", .msnFilter = 0x8F},
              {.name = "Fritz", .tel = "6", .msnFilter = 0xCF},
              {.name = "Gina", .tel = "7", .info = "()"},
              {.name = "Hans", .tel = "8", .ton = 5, .msnFilter = 0x06}});
    }

    void OpenList() {
        DeleteClosed();
        Trigger("mnuListView");
    }

    /// What the event loop does with closed windows.
    static void DeleteClosed() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// The window on the screen; null when there is none.
    QDialog* ListWindow() const {
        DeleteClosed();
        const auto windows = Window->findChildren<QDialog*>("NVList");
        EXPECT_LE(windows.size(), 1);
        return windows.isEmpty() ? nullptr : windows.first();
    }

    QListView* ResultList() const { return Find<QListView>("ListResult"); }
    std::vector<std::string> Lines() const { return RowsOf(*ResultList()); }

    void Tick(std::initializer_list<int> boxes) {
        for (const int box : boxes) {
            Click(QString("chkFi(%1)").arg(box));
        }
    }

    /// The boxes that are ticked, by their numbers.
    std::string Ticked() const {
        std::string ticked;
        for (int box = 0; box < 8; ++box) {
            if (IsChecked(QString("chkFi(%1)").arg(box))) {
                ticked += std::to_string(box);
            }
        }
        return ticked;
    }
};

}  // namespace norvik::test
