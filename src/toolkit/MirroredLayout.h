#pragma once

#include <vector>

#include "toolkit/zultoolkit_export.h"

class QWidget;

namespace toolkit {

/// Mirrors a form that is laid out by position where its user reads from right to left. What lays it out, and reads
/// positions back for it, works from left to right all the same, inside of a scope:
///
///     const TMirroredLayout::TScope Scope(Layout_);
///     Grid->move(4, 4);
class ZULTOOLKIT_EXPORT TMirroredLayout {
 public:
  /// The widgets whose direct children are mirrored; the first gives the direction. They must outlive this object.
  explicit TMirroredLayout(std::vector<QWidget*> Containers) : Containers_(std::move(Containers)) {}
  TMirroredLayout(const TMirroredLayout&) = delete;
  TMirroredLayout& operator=(const TMirroredLayout&) = delete;

  /// While it lives, everything stands from left to right. Scopes may be nested.
  class ZULTOOLKIT_EXPORT TScope {
   public:
    explicit TScope(TMirroredLayout& Layout);
    ~TScope();
    TScope(const TScope&) = delete;
    TScope& operator=(const TScope&) = delete;

   private:
    TMirroredLayout& Layout_;
  };

 private:
  void Mirror();

  std::vector<QWidget*> Containers_;
  bool Mirrored_ = false;
  int Depth_ = 0;
};

}  // namespace toolkit
