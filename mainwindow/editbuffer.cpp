#include "mainwindow/editbuffer.h"

namespace norvik {

namespace {

bool IsDiagnostic(std::size_t field) {
    return field >= FirstDiagnosticField && field <= LastDiagnosticField;
}

}  // namespace

EditBuffer BufferOf(const MainWindowFields& fields) {
    EditBuffer buffer;
    for (std::size_t i = 0; i < buffer.Anzeigefeld.size(); ++i) {
        if (!IsDiagnostic(i)) {
            buffer.Anzeigefeld.at(i) = fields.Anzeigefeld.at(i);
        }
    }
    buffer.DDTon = fields.DDTon;
    buffer.DDAB = fields.DDAB;
    buffer.DDMSN = fields.DDMSN;
    buffer.chkTon = fields.chkTon;
    buffer.chkCharge = fields.chkCharge;
    buffer.OptFilter = fields.OptFilter;
    buffer.AnzGeb = fields.AnzGeb;
    buffer.ChargeErased = fields.ChargeErased;
    return buffer;
}

void PutBuffer(const EditBuffer& buffer, MainWindowFields& fields) {
    for (std::size_t i = 0; i < buffer.Anzeigefeld.size(); ++i) {
        if (!IsDiagnostic(i)) {
            fields.Anzeigefeld.at(i) = buffer.Anzeigefeld.at(i);
        }
    }
    fields.DDTon = buffer.DDTon;
    fields.DDAB = buffer.DDAB;
    fields.DDMSN = buffer.DDMSN;
    fields.chkTon = buffer.chkTon;
    fields.chkCharge = buffer.chkCharge;
    fields.OptFilter = buffer.OptFilter;
    fields.AnzGeb = buffer.AnzGeb;
    fields.ChargeErased = buffer.ChargeErased;
}

}  // namespace norvik
