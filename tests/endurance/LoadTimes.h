#pragma once

#include <QMap>
#include <QString>
#include <algorithm>
#include <cmath>
#include <mutex>
#include <vector>

/// How long things took, in milliseconds, by what was done. May be noted on any thread.
class TLoadTimes {
 public:
  void Note(const QString& Operation, double Milliseconds) {
    const std::lock_guard Lock(Mutex_);
    Times_[Operation].push_back(Milliseconds);
  }

  std::size_t Count(const QString& Operation) const {
    const std::lock_guard Lock(Mutex_);
    return Times_.value(Operation).size();
  }

  /// A line for each operation.
  QString Table(const QString& Title) const {
    const std::lock_guard Lock(Mutex_);
    QString Text = QStringLiteral("%1%2%3%4%5%6\n")
                       .arg(Title, -34)
                       .arg("times", 8)
                       .arg("p50", 10)
                       .arg("p90", 10)
                       .arg("p99", 10)
                       .arg("max ms", 10);
    for (auto Each = Times_.begin(); Each != Times_.end(); ++Each) {
      std::vector<double> Sorted = Each.value();
      std::sort(Sorted.begin(), Sorted.end());
      Text += QStringLiteral("  %1%2").arg(Each.key(), -32).arg(Sorted.size(), 8);
      for (const double Share : {0.5, 0.9, 0.99, 1.0}) Text += QStringLiteral("%1").arg(Of(Sorted, Share), 10, 'f', 1);
      Text += u'\n';
    }
    return Text;
  }

 private:
  // The least of them that so many are not above.
  static double Of(const std::vector<double>& Sorted, double Share) {
    const auto Place = static_cast<std::size_t>(std::ceil(Share * static_cast<double>(Sorted.size())));
    return Sorted[std::max<std::size_t>(Place, 1) - 1];
  }

  mutable std::mutex Mutex_;
  QMap<QString, std::vector<double>> Times_;
};
