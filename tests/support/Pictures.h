#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <QStringList>

/// Pictures as they were when somebody last looked at them: tests/pictures/NAME.png, named by what they mean, on
/// nothing. After a picture was redrawn on purpose, the tests write them anew when ZUL_WRITE_PICTURES is set; the
/// new ones are to be looked at.
namespace support {

/// The same but for the rounding of half-covered pixels, which depends on where on the screen they are.
bool LooksLike(const QImage& A, const QImage& B);

/// Whether a picture, painted on nothing, looks like the one kept under the name.
bool LooksLikeKept(const QImage& Painted, const QString& Name);

/// The kept pictures one over the other, on a background; empty when one is missing.
QImage KeptPictures(const QStringList& Names, const QColor& Behind);

}  // namespace support
