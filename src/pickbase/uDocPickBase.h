#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ads/Connection.h"
#include "ads/Query.h"
#include "ads/Table.h"
#include "frame/zulpicklists_export.h"
#include "pickbase/ListQuery.h"
#include "toolkit/DBGrid.h"
#include "toolkit/Form.h"
#include "toolkit/MirroredLayout.h"
#include "toolkit/RadioGroup.h"

class QAction;
class QCheckBox;
class QCloseEvent;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace pickbase {
class TPickCall;
}

namespace uDocPickBase {

/// "YYYY-MM-DD": how a typed date stands in a query. Empty once the module was finalized.
ZULPICKLISTS_EXPORT extern std::string SQL_DATE_FMT;

/// The start and end of this unit, run by the module's entries.
void StartUnit();
void EndUnit();

/// The modal dialog from which every pick dialog derives: a list of candidate records, a find box, the choices what to
/// find and to order by, a descending switch, OK and Cancel.
///
/// A dialog declares its fields, columns and extra boxes in its constructor, its captions and choices in `SetUpColumns`
/// and its query in `SetSQL`. It is created by its static `Create`, which builds the complete object over the caller's
/// connection and runs the first query; what that raises reaches the caller. The connection is borrowed for the life of
/// the dialog. Each dialog's class is known to Qt (Q_OBJECT), and its object name is that of the class without the T,
/// so that style sheets and test tools can tell the dialogs apart: "uPickCity::TfrmPickCity" is called "frmPickCity".
class ZULPICKLISTS_EXPORT TDocPickBase : public toolkit::TForm {
  Q_OBJECT
 public:
  ~TDocPickBase() override;

  /// Shows the dialog modally; whether it was closed with OK. An empty list is not shown when `SetShowIfEmpty(false)`
  /// was called: false then.
  bool ShowPick();

  /// Runs the query again behind the please-wait window, and gives back when the first rows are known or the user has
  /// stopped it. While a query runs already, one more run follows it.
  void CallSetSQL();

  /// Builds the query from the find text and the choices and opens it.
  virtual void SetSQL() = 0;
  /// Sets captions, labels and choices; once, while the dialog is created.
  virtual void SetUpColumns();
  /// Lays out the find-by and order-by controls, one under the other.
  virtual void UpdateFind();

  /// Sizes the grid to its columns, the form to the grid, and centres it on the screen. A grid that would make the form
  /// wider than the screen is narrower than its columns.
  void AdjustWidths();
  /// Removes the first column that shows the field, if any.
  void RemoveColumn(const ads::TField* Field, bool Adjust);

  /// What is picked, in "Select ..." and "Available ...". While the dialog is created, the table's text under the name
  /// PickCaption or AvailableCaption stands for the one that is given here, as for all of the dialog's own texts.
  void SetPickCaption(const std::string& Subject);
  void SetAvailableCaption(const std::string& Subject);
  void SetShowIfEmpty(bool Show) { ShowIfEmpty = Show; }

  /// The find box's text for a LIKE pattern: trimmed, in upper case, single quotes doubled.
  std::string FindText() const;
  /// The find box's date as YYYY-MM-DD. Throws `toolkit::EConvertError` when it is none.
  std::string FindDate() const;

  /// Throw `zulcommon::EZULException`, code -1, when S is no date in the user's short date pattern, no 32-bit integer,
  /// no number. A number may have the digits and signs of the user's locale, and a point as its decimal sign in any.
  void CheckDate(const std::string& S) const;
  void CheckInt(const std::string& S) const;
  void CheckNumber(const std::string& S) const;

  // The rules of the events. All but the updates run guarded when they come from the user.
  virtual void actOKUpdate();
  /// Stops what the list is waiting for; when it waits for nothing, closes the dialog without a choice.
  void reject() override;
  void actOKExecute();
  void actCancelExecute();
  void actFindUpdate();
  void actFindExecute();
  void edFindKeyPress(char Key);
  void edFindChange();
  void rgFindByClick();
  void OrderClick();
  /// A title by which the list can be ordered is chosen; the one by which it is ordered already turns the direction
  /// over.
  void dbgAvailTitleClick(const toolkit::TColumn* Title);
  virtual void dbgAvailDblClick();
  virtual void dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol,
                                      toolkit::TColumn* Column, toolkit::TGridDrawState State);

  QWidget* pnlForm;
  QGroupBox* gbList;
  toolkit::TDBGrid* dbgAvail;
  QGroupBox* gbFind;
  QLineEdit* edFind;
  QPushButton* bbnFInd;
  toolkit::TRadioGroup* rgFindBy;
  toolkit::TRadioGroup* rgOrderBy;
  QCheckBox* ckbDesc;
  QWidget* pnlButtons;
  QPushButton* bbnOK;
  QPushButton* bbnCancel;
  /// Under the buttons: how many rows are listed, and that they are not what was searched for when the search failed.
  QLabel* lblRows;
  QAction* actOK;
  QAction* actFind;
  QAction* actCancel;
  ads::TAdsQuery* qryList_;
  ads::TAdsTable* tblSys_;
  ads::TField* tblSys_QtyDec;
  ads::TField* tblSys_PrcDec;
  ads::TField* tblSys_MultiAcct;
  ads::TField* tblSys_MultiLoc;

  /// Display formats by the system's decimals: ",0.00" for two, ",0" for none.
  std::string PriceFormat;
  std::string QtyFormat;
  /// True while `SetUpColumns` runs: setting a choice does not query then.
  bool InSetup = false;
  std::string PickCaption;
  std::string AvailableCaption;
  bool ShowIfEmpty = false;
  /// The system's switches for several locations and several accounting entities.
  bool MultiLoc = false;
  bool MultiAcct = false;

 protected:
  /// Creates the components. Everything that may fail or that a descendant overrides comes later, in `Build`.
  TDocPickBase();

  /// What every static `Create` does: constructs the dialog from its arguments, then runs the construction steps on the
  /// complete object. Throws `std::logic_error`, before there is any widget, on another thread than that of the user
  /// interface or without a QApplication.
  template <typename TDialog, typename... TArgs>
  static std::unique_ptr<TDialog> Construct(ads::TAdsConnection* Connection, TArgs&&... Args) {
    RequireUserInterface();
    const TConstruction Construction;
    std::unique_ptr<TDialog> Dialog(new TDialog(std::forward<TArgs>(Args)...));
    Construction.Run(*Dialog, Connection);
    return Dialog;
  }

  void changeEvent(QEvent* Event) override;
  void keyPressEvent(QKeyEvent* Event) override;

  /// What is typed in the list goes to the find box, and the keyboard with it. Whether there is one.
  bool TypeIntoFind(const QString& Text);
  /// A line below the number of rows in the list's tool tip.
  void SetListHint(const std::string& Hint) { ListHint_ = Hint; }

  /// A dialog's own closing steps, once it is built and its list is open.
  virtual void AfterCreate() {}

  // Fields of the list query, for a dialog's constructor.
  ads::TField* TextField(const std::string& Name, int Size);
  ads::TField* BooleanField(const std::string& Name);
  ads::TField* FloatField(const std::string& Name);
  ads::TField* DateField(const std::string& Name);
  ads::TField* SmallintField(const std::string& Name);
  ads::TField* IntegerField(const std::string& Name);
  ads::TField* AutoIncField(const std::string& Name);
  ads::TField* CalculatedField(const std::string& Name, ads::TFieldType Type);

  /// Appends a grid column.
  toolkit::TColumn& Column(ads::TField* Field) { return dbgAvail->AddColumn(Field); }
  /// Appends a narrow centred column, as Booleans and icons have.
  toolkit::TColumn& NarrowColumn(ads::TField* Field);

  /// Adds a check box of the dialog's own below the descending box (and below those added before); a change queries
  /// again.
  QCheckBox* AddFilterBox(const char* Name, const char* Caption);
  /// The same with a handler of its own instead; it runs guarded.
  QCheckBox* AddCheckBox(const char* Name, const char* Caption, std::function<void()> OnClick);

  /// A text that the dialog holds as its own, in the language of the string table, by its name in this dialog
  /// ("ckbInactive.Caption"). Captions of boxes, fields' labels and the dialog's captions go through this by
  /// themselves; `SetUpColumns` and what comes later may ask, the constructor is too early.
  std::string OwnText(const std::string& Name, const std::string& Default) const;

  /// Sets the fields' labels from the string table.
  static void SetLabels(const std::vector<std::pair<ads::TField*, int>>& Labels);

  /// Offers the choices in both groups and chooses the same one in both.
  void SetChoices(TPickChoices Choices, int Default);

  using TRecipe = std::function<void(TListQuery&)>;

  /// Builds the query by the recipe and opens it. The find text is checked first as the chosen find-by asks; a bad one
  /// throws and leaves everything as it was. When building or opening fails, the same recipe is run once more without
  /// its find lines, and the dialog says that the search could not be done; only a failure of that reaches the caller.
  /// A lost connection does at once, because there is no list to be had by it.
  void OpenGuarded(const TRecipe& Recipe) { OpenGuarded(Choices_, Recipe); }
  /// The same for a query whose indexes stand for other choices than those offered.
  void OpenGuarded(const TPickChoices& Choices, const TRecipe& Recipe);
  /// What `OpenGuarded` does when the search failed; `Why` goes to the log.
  void OpenWithoutFind(const TRecipe& Recipe, const std::string& Why);
  /// Builds and opens without the second try.
  void OpenPlainly(const TRecipe& Recipe) { OpenPlainly(Choices_, Recipe); }
  void OpenPlainly(const TPickChoices& Choices, const TRecipe& Recipe);

  /// Whether the user has stopped the query that `SetSQL` runs: what it opens from then on stays as it is.
  bool WasStopped() const { return IsStopped_; }

  const TPickChoices& Choices() const { return Choices_; }
  /// Whether the trimmed find text is not empty.
  bool HasFindText() const;
  /// The find box's text as typed.
  std::string TypedText() const;

  bool event(QEvent* Event) override;
  void closeEvent(QCloseEvent* Event) override;

 private:
  /// The construction steps, and what holds meanwhile. A dialog that no pick call has asked for lets go of the database
  /// in the end, because nobody knows when it will be shown. A failure is of no interest to a user who has given up.
  class ZULPICKLISTS_EXPORT TConstruction {
   public:
    TConstruction();
    ~TConstruction();
    void Run(TDocPickBase& Dialog, ads::TAdsConnection* Connection) const;

   private:
    std::unique_ptr<pickbase::TPickCall> Own_;
  };

  void CreateList();
  void CreateFind();
  void CreateButtons();
  void CreateSys();
  void ConnectEvents();
  void LoadCaptions();
  void LoadOwnCaptions();
  void LoadOwnLabels();
  std::string OwnLabel(const ads::TField& Field, const std::string& Label) const;
  QString RowsText() const;
  void ReadSys();
  void FitList();
  int PlaceBesideList();
  int WholeRowsHeight() const;
  void PlacePanels();
  static void RequireUserInterface();
  void NameAfterClass();
  void Build(ads::TAdsConnection* Connection);
  void EndBuild();
  TQueryState QueryState() const;
  TQueryState CheckedState(const TPickChoices& Choices) const;
  void OpenBuilt(const TQueryState& State, const TPickChoices& Choices, const TRecipe& Recipe, bool FindLines);
  void OpenWithoutFind(const TQueryState& State, const TPickChoices& Choices, const TRecipe& Recipe,
                       const std::string& Why);
  void TellRows();
  void ShowOrder();
  void TellFindBy();
  void RunQuery();
  void RunQueries();
  void StopQuery();
  bool HasFindBox() const;
  bool TakeLastKeys();
  void AwaitActivation();
  void BeUp();

  toolkit::TMirroredLayout Layout_{{this, pnlForm}};
  TPickChoices Choices_;
  std::vector<QCheckBox*> Boxes_;
  std::string ListHint_;
  bool Querying_ = false;
  bool QueryAgain_ = false;
  QString Searched_;                     // the text of the last search, as it was typed
  bool SearchFailed_ = false;            // the list is the whole one because the search could not be done
  bool HasSearched_ = false;             // the list is what was found
  pickbase::TPickCall* Call_ = nullptr;  // that has asked for the dialog, and may have ended since
  bool IsBuilt_ = false;
  bool IsStopped_ = false;  // the query that runs, or ran last
  bool IsGivenUp_ = false;  // the pick, before its dialog was built
  bool IsClosing_ = false;  // by the window's close button
};

}  // namespace uDocPickBase
