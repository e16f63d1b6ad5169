#include "check/DialogStates.h"

#include <QCheckBox>
#include <QDate>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "ads/EDatabaseError.h"
#include "toolkit/EConvertError.h"
#include "toolkit/Formats.h"
#include "zulcommon/EZULException.h"

namespace check {

namespace {

using catalog::TArg;
using catalog::TArgKind;
using catalog::TArgs;
using uDocPickBase::TDocPickBase;

// What a text, a number and a code are alike.
constexpr char AnyText[] = "1";

// The default first, each value once.
std::vector<std::string> ValuesOf(const TArg& Arg) {
  std::vector<std::string> Values{Arg.Default};
  switch (Arg.Kind) {
    case TArgKind::Text:
      Values.insert(Values.end(), {std::string(), AnyText});
      break;
    case TArgKind::Boolean:
      Values.insert(Values.end(), {"no", "yes"});
      break;
    case TArgKind::Integer:
      Values.insert(Values.end(), {"0", "1"});
      break;
    case TArgKind::Choice:
      Values.insert(Values.end(), Arg.Values.begin(), Arg.Values.end());
      break;
    case TArgKind::Choices: {
      std::string All;
      for (const std::string& Value : Arg.Values) All += (All.empty() ? "" : ",") + Value;
      Values.push_back({});
      Values.insert(Values.end(), Arg.Values.begin(), Arg.Values.end());
      Values.push_back(All);
      break;
    }
  }
  std::vector<std::string> Result;
  for (const std::string& Value : Values) {
    const std::string Checked = CheckedValue(Arg, Value);
    if (std::find(Result.begin(), Result.end(), Checked) == Result.end()) Result.push_back(Checked);
  }
  return Result;
}

using TSettings = std::map<std::string, std::string>;  // values by argument, without those at their default

class TCombinations {
 public:
  explicit TCombinations(const std::vector<TArg>& Definitions) : Definitions_(Definitions) {
    for (const TArg& Arg : Definitions) Values_.push_back(ValuesOf(Arg));
  }

  bool AreMany() const {
    constexpr std::size_t Few = 16;
    std::size_t All = 1;
    for (const auto& Values : Values_) All *= Values.size();
    return All > Few;
  }

  std::vector<TSettings> Make() const { return AreMany() ? Pairs() : Product(); }

 private:
  std::vector<TSettings> Product() const {
    std::vector<TSettings> Result{{}};
    for (std::size_t Arg = 0; Arg < Values_.size(); ++Arg) {
      const std::vector<TSettings> Before = Result;
      ForOthers(Arg, [&](const std::string& Value) {
        for (TSettings Settings : Before) Add(Result, std::move(Settings), Arg, Value);
      });
    }
    return Result;
  }

  std::vector<TSettings> Pairs() const {
    std::vector<TSettings> Result{{}};
    for (std::size_t Arg = 0; Arg < Values_.size(); ++Arg) {
      ForOthers(Arg, [&](const std::string& Value) {
        Add(Result, {}, Arg, Value);
        const TSettings One = Result.back();
        for (std::size_t Other = Arg + 1; Other < Values_.size(); ++Other) {
          ForOthers(Other, [&](const std::string& Second) { Add(Result, One, Other, Second); });
        }
      });
    }
    return Result;
  }

  template <typename TDo>
  void ForOthers(std::size_t Arg, TDo Do) const {
    for (std::size_t Value = 1; Value < Values_[Arg].size(); ++Value) Do(Values_[Arg][Value]);
  }

  void Add(std::vector<TSettings>& To, TSettings Settings, std::size_t Arg, const std::string& Value) const {
    Settings[Definitions_[Arg].Name] = Value;
    To.push_back(std::move(Settings));
  }

  const std::vector<TArg>& Definitions_;
  std::vector<std::vector<std::string>> Values_;  // of each argument, its default first
};

std::string ItemOf(const toolkit::TRadioGroup& Group, int Index) {
  return Index >= 0 ? Group.Items()[Index] : std::string();
}

// Chooses without the query that follows a user's choice.
void Choose(toolkit::TRadioGroup& Group, int Index) {
  const auto OnClick = std::exchange(Group.OnClick, nullptr);
  Group.SetItemIndex(Index);
  Group.OnClick = OnClick;
}

void Tick(QCheckBox& Box, bool Ticked) {
  const QSignalBlocker Blocker(&Box);
  Box.setChecked(Ticked);
}

void Type(QLineEdit& Edit, const std::string& Text) {
  const QSignalBlocker Blocker(&Edit);
  Edit.setText(QString::fromStdString(Text));
}

/// One dialog and the states that it is walked through.
class TDialogWalk {
 public:
  TDialogWalk(TDocPickBase& Dialog, const TStateWalk& Walk) : Dialog_(Dialog), Walk_(Walk), Quiet_(Dialog.qryList_) {
    for (QCheckBox* Box : Dialog.findChildren<QCheckBox*>()) {
      if (Box != Dialog.ckbDesc && !Box->isHidden()) Boxes_.push_back(Box);
    }
    FindTexts_.resize(static_cast<std::size_t>(Dialog.rgFindBy->Items().Count()));
  }

  void Run() {
    Lookups();
    for (unsigned Ticked = 0; Ticked < 1U << Boxes_.size(); ++Ticked) {
      for (std::size_t Box = 0; Box < Boxes_.size(); ++Box) {
        Tick(*Boxes_[Box], (Ticked >> Box & 1U) != 0);
      }
      const int Orders = Dialog_.rgOrderBy->Items().Count();
      for (int Order = Orders > 0 ? 0 : -1; Order < Orders; ++Order) InOrder(Order);
    }
  }

 private:
  // Tables in which a record is looked up for each row that is painted.
  void Lookups() {
    for (ads::TAdsTable* Table : Dialog_.findChildren<ads::TAdsTable*>()) {
      if (Table->Active() || Table->IndexName().empty()) continue;
      Walk_.Enter("looking a record up in " + Table->TableName());
      Guarded([&] {
        Table->Open();
        Table->FindKey(AnyText);
      });
    }
  }

  void InOrder(int Order) {
    Choose(*Dialog_.rgOrderBy, Order);
    for (const bool Descending : {false, true}) {
      if (Descending && Dialog_.ckbDesc->isHidden()) break;
      Tick(*Dialog_.ckbDesc, Descending);
      Type(*Dialog_.edFind, {});
      Send();
      if (Dialog_.gbFind->isHidden() || Dialog_.edFind->isHidden()) continue;
      for (int FindBy = 0; FindBy < static_cast<int>(FindTexts_.size()); ++FindBy) Find(FindBy);
      if (FindTexts_.empty()) FindWith(AnyText);
    }
  }

  // With the first text that the find-by takes, which is a date where it takes no other.
  void Find(int FindBy) {
    Choose(*Dialog_.rgFindBy, FindBy);
    std::optional<std::string>& Fit = FindTexts_[static_cast<std::size_t>(FindBy)];
    if (!Fit) Fit = IsRefused(AnyText) ? toolkit::FormatDate(toolkit::ShortDateFormat(), QDate(2000, 1, 31)) : AnyText;
    FindWith(*Fit);
  }

  bool IsRefused(const std::string& Text) {
    Type(*Dialog_.edFind, Text);
    try {
      Walk_.Enter(State());
      Dialog_.SetSQL();
    } catch (const zulcommon::EZULException&) {
      return true;
    } catch (const toolkit::EConvertError&) {
      return true;
    } catch (const std::exception&) {
      // Whatever it is, it is found again by who sends the query.
    }
    return false;
  }

  void FindWith(const std::string& Text) {
    Type(*Dialog_.edFind, Text);
    Send();
  }

  void Send() {
    Walk_.Enter(State());
    Guarded([this] { Dialog_.SetSQL(); });
  }

  template <typename TDo>
  void Guarded(TDo Do) const {
    try {
      Do();
    } catch (const ads::EConnectionLost&) {
      throw;
    } catch (const ads::EQueryEnded&) {
      throw;
    } catch (const std::exception& Error) {
      Walk_.Failed(Error.what());
    }
  }

  std::string State() const {
    const std::string Order = ItemOf(*Dialog_.rgOrderBy, Dialog_.rgOrderBy->ItemIndex());
    std::string Result = Order.empty() ? "" : "order by \"" + Order + "\"";
    const auto Add = [&Result](const std::string& Part) { Result += (Result.empty() ? "" : ", ") + Part; };
    if (Dialog_.ckbDesc->isChecked()) Add("descending");
    for (const QCheckBox* Box : Boxes_) {
      if (Box->isChecked()) Add("\"" + Box->text().toStdString() + "\" ticked");
    }
    const std::string Text = Dialog_.edFind->text().toStdString();
    const std::string By = ItemOf(*Dialog_.rgFindBy, Dialog_.rgFindBy->ItemIndex());
    if (!Text.empty()) Add("find \"" + Text + "\"" + (By.empty() ? "" : " by \"" + By + "\""));
    return Result;
  }

  TDocPickBase& Dialog_;
  const TStateWalk& Walk_;
  const QSignalBlocker Quiet_;  // nobody looks at the list
  std::vector<QCheckBox*> Boxes_;
  std::vector<std::optional<std::string>> FindTexts_;  // for each find-by, once it is known
};

}  // namespace

std::vector<TCall> CallsOf(const catalog::TPick& Pick) {
  const TCombinations Combinations(Pick.Args);
  std::vector<TCall> Calls;
  for (const TSettings& Settings : Combinations.Make()) {
    Calls.push_back({TArgs(Pick.Args), static_cast<int>(Settings.size()), Combinations.AreMany()});
    for (const auto& [Name, Value] : Settings) Calls.back().Args.Set(Name, Value);
  }
  return Calls;
}

void TStateWalk::Through(TDocPickBase& Dialog) const {
  TDialogWalk(Dialog, *this).Run();
}

}  // namespace check
