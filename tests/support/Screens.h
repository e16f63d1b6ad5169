#pragma once

#include <QRect>
#include <QTemporaryDir>
#include <initializer_list>

namespace support {

/// The screens of the test program, at these places; the first is the primary one. To be made before the application is
/// (`ZUL_TEST_MAIN`), and to live as long.
class TScreens {
 public:
  explicit TScreens(std::initializer_list<QRect> Places);

 private:
  QTemporaryDir Folder_;
};

}  // namespace support

/// The main function of a test program that wants other screens than the one of 800 by 800 pixels.
#define ZUL_TEST_MAIN(TestClass, ...)                 \
  int main(int Count, char** Arguments) {             \
    const support::TScreens Screens({__VA_ARGS__});   \
    const QApplication Application(Count, Arguments); \
    TestClass Test;                                   \
    return QTest::qExec(&Test, Count, Arguments);     \
  }
