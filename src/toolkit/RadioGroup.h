#pragma once

#include <functional>
#include <string>
#include <vector>

#include "toolkit/GroupBox.h"
#include "toolkit/Lists.h"
#include "toolkit/zultoolkit_export.h"

class QButtonGroup;
class QRadioButton;

namespace toolkit {

class TRadioGroup;

/// The captions of a radio group's buttons. Changing them keeps the chosen position, or goes to the last item when
/// there is no such position any more, and never calls the group's `OnClick`.
class ZULTOOLKIT_EXPORT TRadioItems {
 public:
  TRadioItems(const TRadioItems&) = delete;  // `Assign` takes another group's captions
  TRadioItems& operator=(const TRadioItems&) = delete;

  int Count() const { return static_cast<int>(Captions_.size()); }
  const std::string& operator[](int Index) const;  ///< throws EListError
  int IndexOf(const std::string& Caption) const;   ///< -1 when there is none

  void Add(const std::string& Caption);
  /// Replaces the caption of an item; throws EListError.
  void Put(int Index, const std::string& Caption);
  void Clear();
  /// Takes the captions of another group's items.
  void Assign(const TRadioItems& Other);

  auto begin() const { return Captions_.begin(); }
  auto end() const { return Captions_.end(); }

 private:
  friend class TRadioGroup;
  explicit TRadioItems(TRadioGroup* Group) : Group_(Group) {}

  TRadioGroup* Group_;
  std::vector<std::string> Captions_;
};

/// A titled box of radio buttons in one column, 14 pixels apart, in the order of its items. None need be chosen.
///
/// The buttons are QRadioButtons, children of the group, named after it and their position ("rgFindBy0"). The group is
/// one tab stop, which has the place in the tab order that the group is given (`setTabOrder`), whenever its items were
/// added; the arrow keys choose within it. A button's caption is shown as it is ("&" is no mnemonic) and is also its
/// tool tip when it does not fit.
class ZULTOOLKIT_EXPORT TRadioGroup : public TGroupBox {
  Q_OBJECT
 public:
  explicit TRadioGroup(QWidget* Parent = nullptr);
  ~TRadioGroup() override;

  TRadioItems& Items() { return Items_; }
  const TRadioItems& Items() const { return Items_; }
  QRadioButton* Button(int Index) const;  ///< throws EListError
  /// The pixels that there are for the caption of a button.
  int ChoiceRoom() const;

  /// The chosen item, -1 for none.
  int ItemIndex() const;
  /// An index below -1 counts as -1, one behind the last item as the last. A change calls `OnClick`, as a user's choice
  /// does.
  void SetItemIndex(int Index);

  /// Called when another item was chosen, by the user or by `SetItemIndex`; guarded, so it may throw.
  std::function<void()> OnClick;

 protected:
  void resizeEvent(QResizeEvent* Event) override;
  void changeEvent(QEvent* Event) override;

 private:
  friend class TRadioItems;
  class TChoice;

  TChoice* Choice(int Index) const;
  void Rebuild();
  void NameButtons();
  void PlaceButtons();
  void Check(int Index);
  void Chosen(int Index);

  TRadioItems Items_;
  QButtonGroup* Buttons_;
  int ItemIndex_ = -1;
  bool Checking_ = false;  // the buttons are being brought to ItemIndex_
};

}  // namespace toolkit
