#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdio>

#include "PickBench.h"

namespace {

// The offscreen platform remarks on every window that it cannot pass size hints on.
void Quiet(QtMsgType Type, const QMessageLogContext&, const QString& Message) {
  if (Type != QtDebugMsg && !Message.contains(QLatin1String("propagateSizeHints"))) {
    fprintf(stderr, "%s\n", qPrintable(Message));
  }
}

}  // namespace

int main(int Count, char** Args) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(Quiet);
  const QApplication Application(Count, Args);
  benchmark::Initialize(&Count, Args);
  if (benchmark::ReportUnrecognizedArguments(Count, Args)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  bench::Lookups().Close();
  bench::Company().Close();
  return 0;
}
