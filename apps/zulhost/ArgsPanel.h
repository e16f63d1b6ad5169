#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "catalog/Catalog.h"

namespace zulhost {

/// The arguments of one pick as controls: a line for a text, a check box for a Boolean, a combo box for a choice, check
/// boxes for a set.
class TArgsPanel : public QWidget {
  Q_OBJECT
 public:
  /// Every argument stands at its default. The pick is borrowed.
  explicit TArgsPanel(const catalog::TPick& Pick, QWidget* Parent = nullptr);

  /// What the controls hold. Throws `catalog::EArgError` for a text that is no value of its argument.
  catalog::TArgs Args() const;

  void Show(const catalog::TArgs& Args);

 private:
  struct TEditor {
    QWidget* Widget;
    std::function<std::string()> Read;
    std::function<void(const catalog::TArgs&)> Show;
  };

  TEditor CreateEditor(const catalog::TArg& Arg);
  TEditor CreateLine(const catalog::TArg& Arg);
  TEditor CreateBox(const catalog::TArg& Arg);
  TEditor CreateChoice(const catalog::TArg& Arg);
  TEditor CreateChoices(const catalog::TArg& Arg);

  const catalog::TPick& Pick_;
  std::vector<TEditor> Editors_;  // in the order of the arguments
};

}  // namespace zulhost
