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

void Close(Program& program, Desktop& desktop) {
    program.List = RegisterListFields();
    desktop.CloseRegisterList();
}

}  // namespace

void mnuListView_Click(Program& program, Desktop& desktop) {
    program.List.Open = true;
    desktop.ShowRegisterList();
}

void chkFi_Click(Program& program, Desktop& desktop) {
    RefreshRegisterList(program, desktop);
}

void RefreshRegisterList(Program& program, Desktop& desktop) {
    const Text filter = FilterText(program.List);
    if (!filter.empty()) {
        FillRegisterList(filter, program.State, program.Fields.DDTonItems, program.Set.UnitPrice,
                         program.List, desktop);
        FollowMarks(program, desktop);
    }
}

void RenewRegisterList(Program& program, Desktop& desktop) {
    if (!program.List.Open) {
        return;
    }
    program.List.ListResult.clear();
    program.List.AnzTreffer = NoHitCount;
    RefreshRegisterList(program, desktop);
}

void NVList_btnExit_Click(Program& program, Desktop& desktop) {
    const auto& boxes = program.List.chkFi;
    program.Fields.chkListFilter =
        std::any_of(boxes.begin(), boxes.end(), [](bool ticked) { return ticked; });
    chkListFilter_Click(program, desktop);
    Close(program, desktop);
}

void NVList_btnCancel_Click(Program& program, Desktop& desktop) {
    Close(program, desktop);
}

}  // namespace norvik
