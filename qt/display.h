// A label that shows a value of the program's, for the eye and for a screen reader.
#pragma once

#include <QLabel>

namespace norvik {

/// Its accessible name is the text that it shows, or where it shows none a text that says so; what
/// it means is its description.
class Display : public QLabel {
  public:
    Display(const QString& meaning, QWidget* parent);

    /// Shows a text and tells a screen reader of it, if it is another one.
    void Show(const QString& text);
    void Show(int number) { Show(QString::number(number)); }

    /// Shows a text that others may follow soon.
    void ShowInPassing(const QString& text);
    /// Tells a screen reader what is shown, also where it is what was told before.
    void Tell();

    /// A remark that is shown when the pointer rests on the label.
    void SetRemark(const QString& remark);

  private:
    [[nodiscard]] QString NameNow() const;

    QString meaning_;
};

/// Sets the accessible description of a widget, and what is shown when the pointer rests on it; a
/// screen reader is told of a change alone.
void Describe(QWidget& widget, const QString& description, const QString& toolTip);

}  // namespace norvik
