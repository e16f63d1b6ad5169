#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QStringList>
#include <QTimer>

/// Closes every error box that opens while this object lives, and keeps their texts.
class TErrorBoxAnswer {
 public:
  TErrorBoxAnswer() {
    QObject::connect(&Timer_, &QTimer::timeout, &Timer_, [this] { Answer(); });
    Timer_.start(10);
  }

  const QStringList& Texts() const { return Texts_; }
  const QStringList& Titles() const { return Titles_; }

 private:
  void Answer() {
    auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (Box == nullptr || Box->objectName() != QLatin1String("ErrorBox")) return;
    Texts_ << Box->text();
    Titles_ << Box->windowTitle();
    Box->button(QMessageBox::Ok)->click();
  }

  QTimer Timer_;
  QStringList Texts_;
  QStringList Titles_;
};
