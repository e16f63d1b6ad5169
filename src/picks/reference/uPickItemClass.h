#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickItemClass {

/// Lists the classes of stock items.
class ZULPICKLISTS_EXPORT TfrmPickItemClass : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickItemClass> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickItemClass>(Connection);
  }
  std::string GetItemClass() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Class;
  ads::TField* qryList_ClassDesc;

 private:
  friend class TDocPickBase;
  TfrmPickItemClass();
};

/// Lets the user pick an item class; its code goes to `ItemClass`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickItemClass(ads::TAdsConnection* Connection, std::string& ItemClass);

}  // namespace uPickItemClass
