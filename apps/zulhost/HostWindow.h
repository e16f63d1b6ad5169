#pragma once

#include <QMainWindow>
#include <memory>
#include <string>

#include "apps/command/OpenDatabase.h"
#include "catalog/Catalog.h"

class QAction;
class QLabel;
class QPushButton;
class QScrollArea;

namespace zulhost {

class TArgsPanel;
class TCallLog;
class TPickTree;
struct TCallRecord;

/// What a developer of a host looks at: every pick, its arguments as controls, and a log of what each call returned.
///
/// Each call is told on standard output too, in one line. Nothing is kept from one start to the next.
class THostWindow : public QMainWindow {
  Q_OBJECT
 public:
  /// The catalog is borrowed.
  explicit THostWindow(const catalog::TCatalog& Catalog, QWidget* Parent = nullptr);
  ~THostWindow() override;

  /// Opens a database in place of the one before, which stays when this one cannot be opened: then it throws
  /// `command::EOpenError`.
  void OpenDatabase(const std::string& Address);
  /// Why there is none, for the user to read.
  void ShowNoDatabase(const std::string& Reason);

  /// Chooses a pick and lets its controls stand as given.
  void Choose(const catalog::TPick& Pick, const catalog::TArgs& Args);

  /// Calls the chosen pick, as the Call button does, and logs what it returned or threw.
  void Call();

 private:
  void CreateMenus();
  QWidget* CreatePanel();
  void ShowPick();
  void AskForFile();
  void AskForAddress();
  void TryToOpen(const std::string& Address);
  TCallRecord CallPick(const catalog::TPick& Pick);
  void UpdateCall();

  std::unique_ptr<command::TDatabase> Database_;
  QLabel* Address_;
  TPickTree* Tree_;
  QLabel* Title_;
  QScrollArea* ArgsArea_;
  QAction* Call_;
  QPushButton* CallButton_;
  TCallLog* Log_;
  TArgsPanel* Args_ = nullptr;  // of the chosen pick; owned by the area
};

}  // namespace zulhost
