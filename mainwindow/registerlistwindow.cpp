#include "mainwindow/registerlistwindow.h"

#include "mainwindow/handlers.h"

#include <algorithm>

namespace norvik {

namespace {

Text FilterText(const RegisterListFields& fields) {
    Text filter;
    for (std::size_t i = 0; i < FilterLetters.size(); ++i) {
        if (fields.chkFi.at(i)) {
            filter.push_back(FilterLetters[i]);
        }
    }
    return filter;
}

/// The main window's list depends on the marks while it is filtered.
void FollowMarks(Program& program, Desktop& desktop) {
    if (program.Fields.chkListFilter) {
        desktop.RebuildList();
    }
}

void Show(Program& program, Windows& windows) {
    program.List.Open = true;
    windows.ShowRegisterList();
}

void Close(Program& program, Windows& windows) {
    program.List = RegisterListFields();
    windows.CloseRegisterList();
}

}  // namespace

void mnuListView(Program& program, Windows& windows) {
    Show(program, windows);
}

void chkFi_Click(Program& program, Desktop& desktop, Windows& windows) {
    RefreshRegisterList(program, desktop, windows);
}

void RefreshRegisterList(Program& program, Desktop& desktop, Windows& windows) {
    const Text filter = FilterText(program.List);
    if (!filter.empty()) {
        if (!program.List.Open) {
            Show(program, windows);
        }
        FillRegisterList(filter, program.State, program.Fields.DDTonItems, program.Set.UnitPrice,
                         program.List);
        FollowMarks(program, desktop);
    }
}

void RenewRegisterList(Program& program, Desktop& desktop, Windows& windows) {
    if (!program.List.Open) {
        return;
    }
    program.List.ListResult.clear();
    program.List.ListPlaces.clear();
    program.List.AnzTreffer = NoHitCount;
    RefreshRegisterList(program, desktop, windows);
}

void ListResult_DblClick(Program& program, int line, Desktop& desktop) {
    const int position = PositionOfLine(program.List, line, program.State);
    if (position > 0) {
        ChooseEntry(program, position, desktop);
    } else {
        desktop.Beep();
        desktop.SetStatus(u"Dieser Eintrag steht nicht mehr im Register");
    }
}

void NVList_btnExit_Click(Program& program, Desktop& desktop, Windows& windows) {
    const auto& boxes = program.List.chkFi;
    program.Fields.chkListFilter =
        std::any_of(boxes.begin(), boxes.end(), [](bool ticked) { return ticked; });
    chkListFilter_Click(program, desktop);
    Close(program, windows);
}

void NVList_btnCancel_Click(Program& program, Windows& windows) {
    Close(program, windows);
}

}  // namespace norvik
