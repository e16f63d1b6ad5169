#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickTerms {

/// Lists the payment terms. What is typed never narrows this list: its find condition has no WHERE before it, so the
/// query fails and the whole list is shown instead.
class ZULPICKLISTS_EXPORT TfrmPickTerms : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickTerms> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickTerms>(Connection);
  }
  std::string GetTerms() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Desc;
  ads::TField* qryList_Default;

 private:
  friend class TDocPickBase;
  TfrmPickTerms();
};

/// Lets the user pick payment terms; their description goes to `Terms`, which is empty when none were picked.
ZULPICKLISTS_EXPORT bool CallPickTerms(ads::TAdsConnection* Connection, std::string& Terms);

}  // namespace uPickTerms
