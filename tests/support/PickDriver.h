#pragma once

#include <QApplication>
#include <functional>
#include <string>
#include <vector>

#include "pickbase/uDocPickBase.h"

namespace support {

/// Calls a pick function and, while it really waits in its modal dialog, `Drive` on that dialog, from a timer. A dialog
/// that `Drive` leaves open is cancelled. Returns what the call returned; a dialog that never came up, or was of
/// another class, ends the test program.
bool DrivePick(const std::function<bool()>& Call, const std::function<void(uDocPickBase::TDocPickBase& Dialog)>& Drive);

/// The same, with the dialog as the class that it is.
template <typename TDialog>
bool DrivePickAs(const std::function<bool()>& Call, const std::function<void(TDialog& Dialog)>& Drive) {
  return DrivePick(Call, [&](uDocPickBase::TDocPickBase& Dialog) { Drive(dynamic_cast<TDialog&>(Dialog)); });
}

/// Answers every error box that comes up while it lives with OK, and keeps the messages.
class TErrorBoxes {
 public:
  TErrorBoxes();
  ~TErrorBoxes();
  TErrorBoxes(const TErrorBoxes&) = delete;
  TErrorBoxes& operator=(const TErrorBoxes&) = delete;

  const std::vector<std::string>& Messages() const { return Messages_; }

 private:
  void Answer();

  class QTimer* Timer_;
  std::vector<std::string> Messages_;
};

// What a user does, by real events.
void TypeFind(uDocPickBase::TDocPickBase& Dialog, const QString& Text);  ///< replaces the find text, then Enter
void ChooseFindBy(uDocPickBase::TDocPickBase& Dialog, int Index);        ///< clicks the radio button
void ChooseOrderBy(uDocPickBase::TDocPickBase& Dialog, int Index);
void ClickBox(QCheckBox* Box);
void ClickOK(uDocPickBase::TDocPickBase& Dialog);
void ClickCancel(uDocPickBase::TDocPickBase& Dialog);
void DoubleClickRow(uDocPickBase::TDocPickBase& Dialog, int Row);  ///< from 0; must be visible

// What the dialog holds.
std::vector<std::string> SqlLines(const uDocPickBase::TDocPickBase& Dialog);
std::vector<std::string> Items(const toolkit::TRadioGroup& Group);
std::vector<std::string> ColumnNames(const uDocPickBase::TDocPickBase& Dialog);  ///< field names in grid order
/// The texts of one field in all rows, in order; the cursor stays.
std::vector<std::string> Column(uDocPickBase::TDocPickBase& Dialog, const std::string& FieldName);
/// The texts as they are shown.
std::vector<std::string> ShownColumn(uDocPickBase::TDocPickBase& Dialog, const std::string& FieldName);

}  // namespace support
