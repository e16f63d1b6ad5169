#pragma once

#include <QIcon>
#include <QSize>
#include <functional>
#include <vector>

#include "toolkit/zultoolkit_export.h"

class QPainter;

namespace toolkit {

/// An icon that is drawn by a function, at whatever size and scale it is wanted, so that it is sharp on every screen.
///
/// `Paint` draws with the upper left corner at (0, 0), antialiased, into the size that it is given (logical pixels);
/// what it leaves out stays transparent. It must not throw. The disabled icon is the style's grey version of the
/// picture.
ZULTOOLKIT_EXPORT QIcon PaintedIcon(std::function<void(QPainter& Painter, const QSizeF& Size)> Paint);

/// Pictures of one size, drawn by number. Transparent where a picture has nothing.
class ZULTOOLKIT_EXPORT TImageList {
 public:
  /// The size is in logical pixels.
  TImageList(int Width, int Height) : Size_(Width, Height) {}

  int Count() const { return static_cast<int>(Images_.size()); }
  QSize Size() const { return Size_; }

  /// Appends a picture, such as a `PaintedIcon`; returns its number.
  int Add(const QIcon& Image);

  /// Draws picture `Index` with its upper left corner at (X, Y); a number without a picture draws nothing.
  void Draw(QPainter& Painter, int X, int Y, int Index, bool Enabled = true) const;

 private:
  QSize Size_;
  std::vector<QIcon> Images_;
};

}  // namespace toolkit
