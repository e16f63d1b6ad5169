#pragma once

#include <QDialog>
#include <string>

#include "toolkit/zultoolkit_export.h"

namespace toolkit {

/// A dialog whose components are placed by position, in logical pixels at 96 dpi: a fixed size, the system's form font
/// (Arial 8, which is 11 pixels high) on each control that has none of its own, no context-help button, no default
/// button.
///
/// Enter presses the button that has the focus and closes nothing otherwise; Escape and the window's close button
/// cancel.
class ZULTOOLKIT_EXPORT TForm : public QDialog {
  Q_OBJECT
 public:
  explicit TForm(QWidget* Parent = nullptr);
  ~TForm() override;

  /// The font of forms and grids: Arial, a font with the same widths, or else some sans-serif one.
  static QFont FormFont();
  /// The bold one of column titles.
  static QFont TitleFont();

  /// The screen of the window for which the form is shown: its own owner's or the application's active one, otherwise
  /// the primary one; null without screens. The form itself must not be shown for that.
  static QScreen* CallersScreen(const TForm* Form);

  std::string Caption() const;
  void SetCaption(const std::string& Caption);

  int ClientWidth() const { return width(); }
  int ClientHeight() const { return height(); }
  /// Fixes the size of the form's inside.
  void SetClientSize(int Width, int Height);
  void SetClientWidth(int Width) { SetClientSize(Width, ClientHeight()); }
  void SetClientHeight(int Height) { SetClientSize(ClientWidth(), Height); }

  /// Shows the form modally over the application's active window and returns when it is closed: whether with OK
  /// (accepted).
  bool ShowModal();

  void setVisible(bool Visible) override;

 protected:
  void keyPressEvent(QKeyEvent* Event) override;

 private:
  void GiveFont();
  void StayAboveActiveWindow();
};

}  // namespace toolkit
