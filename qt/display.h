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

    /// Does not widen the window for a long text; what does not fit is shown when the pointer rests
    /// on the label.
    void LeaveRoom();

    /// A remark that is shown when the pointer rests on the label.
    void SetRemark(const QString& remark);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    /// The text without what the label has no room for.
    [[nodiscard]] QString Fitting() const;
    [[nodiscard]] QString NameNow() const;

    QString meaning_;
};

/// Sets the accessible description of a widget, and what is shown when the pointer rests on it; a
/// screen reader is told of a change alone.
void Describe(QWidget& widget, const QString& description, const QString& toolTip);

}  // namespace norvik
