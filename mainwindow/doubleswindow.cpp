#include "mainwindow/doubleswindow.h"

#include "formats/common/doublednumbers.h"
#include "mainwindow/handlers.h"

#include <algorithm>

namespace norvik {

namespace {

std::vector<DoubleRow> RowsOf(const RegisterState& state, const Settings& settings) {
    std::vector<DoubleRow> rows;
    int group = 0;
    for (const DoubledNumber& number : DoubledNumbers(state, settings)) {
        for (const int position : number.Positions) {
            const RegisterEntry& entry = EntryAt(state, position);
            rows.push_back({.Place = state.RegisterOrder(position),
                            .Position = position,
                            .Group = group,
                            .Dialled = number.Key,
                            .Name = entry.Name,
                            .Tel = entry.Tel});
        }
        ++group;
    }
    return rows;
}

const DoubleRow* ChosenRow(const DoublesFields& fields) {
    const auto row = static_cast<std::size_t>(fields.Chosen);
    return fields.Chosen >= 0 && row < fields.ListDoubles.size() ? &fields.ListDoubles[row]
                                                                 : nullptr;
}

}  // namespace

void mnuListDoubles(Program& program, Windows& windows) {
    program.Doubles.Open = true;
    FollowDoubles(program);
    windows.ShowDoubles();
}

void FollowDoubles(Program& program) {
    DoublesFields& fields = program.Doubles;
    if (!fields.Open) {
        return;
    }
    const DoubleRow* before = ChosenRow(fields);
    const bool isOfThisRegister = fields.Generation == program.State.Generation;
    const int place = before != nullptr && isOfThisRegister ? before->Place : 0;
    fields.Generation = program.State.Generation;
    fields.ListDoubles = RowsOf(program.State, program.Set);
    const auto found = std::find_if(fields.ListDoubles.begin(), fields.ListDoubles.end(),
                                    [place](const DoubleRow& row) { return row.Place == place; });
    fields.Chosen = found != fields.ListDoubles.end()
                        ? static_cast<int>(found - fields.ListDoubles.begin())
                        : -1;
}

void ListDoubles_Click(Program& program, int row, Desktop& desktop) {
    program.Doubles.Chosen = row;
    if (const DoubleRow* chosen = ChosenRow(program.Doubles)) {
        ChooseEntry(program, chosen->Position, desktop);
    }
}

void DOUBLES_btnErase_Click(Program& program, Desktop& desktop) {
    if (const DoubleRow* chosen = ChosenRow(program.Doubles)) {
        if (program.State.AnzNr != chosen->Position) {
            ChooseEntry(program, chosen->Position, desktop);
        }
        btnErase_Click(program, desktop);
    }
}

void DOUBLES_btnClose_Click(Program& program, Windows& windows) {
    program.Doubles = DoublesFields();
    windows.CloseDoubles();
}

}  // namespace norvik
