#include <QApplication>
#include <QCommandLineParser>
#include <QLineEdit>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "GrowthDatabase.h"
#include "Opening.h"
#include "apps/command/OpenDatabase.h"
#include "picks/parties/uPickCustomer.h"

// The list of all customers by company as it grows, as a table in Markdown.

namespace {

using bench::TCreate;
using bench::TGrowthServer;
using bench::TOpening;
using uPickCustomer::TfrmPickCustomer;

constexpr int Columns = 6;

double Median(std::vector<double> Values) {
  std::sort(Values.begin(), Values.end());
  return Values[Values.size() / 2];
}

// After a run that is not counted, because it fills the caches.
template <typename TRun>
double MedianOf(int Runs, TRun Run) {
  Run();
  std::vector<double> Values;
  for (int Place = 0; Place < Runs; ++Place) Values.push_back(Run());
  return Median(Values);
}

// What one search in the open dialog takes until its first rows are painted.
double Search(TfrmPickCustomer& Dialog, const std::string& Text, int Runs) {
  Dialog.edFind->setText(QString::fromStdString(Text));
  return MedianOf(Runs, [&] {
    const double Seconds = bench::Requery(Dialog);
    Dialog.qryList_->GiveUpRest();
    return Seconds;
  });
}

struct TFigures {
  double FirstPage = 0;
  double CommonSearch = 0;
  double RareSearch = 0;
  double Whole = 0;
  double Plain = 0;
  double End = 0;
  bench::TListMemory Memory;
  double Server = 0;
};

void MeasureOpenings(TFigures& Figures, const TCreate& Create, bench::TPlainClient& Plain, const std::string& Sql,
                     std::int64_t Rows, int Runs) {
  std::vector<double> First, Whole;
  Figures.Plain = MedianOf(Runs, [&] {
    const TOpening Opening = bench::Open(Create);
    First.push_back(Opening.FirstPage);
    Whole.push_back(Opening.Whole);
    const bench::TPlainRun Run = Plain.Run(Sql, Columns);
    if (Opening.Rows != Rows || Run.Rows != Rows) qFatal("The list has %d rows.", Opening.Rows);
    return Run.Seconds;
  });
  First.erase(First.begin());
  Whole.erase(Whole.begin());
  Figures.FirstPage = Median(First);
  Figures.Whole = Median(Whole);
}

TFigures Measure(const TGrowthServer& Server, const std::string& Address, std::int64_t Rows) {
  const int Runs = Rows < 1'000'000 ? 5 : 3;
  command::TDatabase Database(Address);
  const auto CreateDialog = [&] { return TfrmPickCustomer::Create(Database.Connection(), false, "", false, false); };
  const TCreate Create = CreateDialog;
  TFigures Figures;
  Figures.Memory = bench::MeasureMemory(Create);
  std::string Sql;
  {
    const auto Dialog = CreateDialog();
    Sql = Server.PlainSql(Database.Connection()->Dialect().Rewrite(Dialog->qryList_->SQL()->Text()));
    Dialog->show();
    Dialog->qryList_->GiveUpRest();
    Figures.CommonSearch = Search(*Dialog, bench::CommonText, Runs);
    Figures.RareSearch = Search(*Dialog, bench::RareText(Rows), Runs);
    if (Dialog->qryList_->IsEmpty()) qFatal("The rare text is not found.");
  }
  MeasureOpenings(Figures, Create, *Server.Connect(Address), Sql, Rows, Runs);
  Figures.End = MedianOf(Runs, [&] { return bench::JumpToEnd(Create); });
  // While there is still a session that shares the server's cache with its other processes.
  Figures.Server = Server.MemoryBytes();
  return Figures;
}

std::string Time(double Seconds) {
  char Text[32];
  std::snprintf(Text, sizeof Text, Seconds < 1 ? "%.0f ms" : "%.1f s", Seconds < 1 ? Seconds * 1000 : Seconds);
  return Text;
}

std::string Size(double Bytes) {
  char Text[32];
  std::snprintf(Text, sizeof Text, Bytes < 10'000'000 ? "%.1f MB" : "%.0f MB", Bytes / 1'000'000);
  return Bytes > 0 ? Text : "-";
}

void PrintTitles() {
  std::puts(
      "| database | rows | opening | a search, first page | a rare text | whole list | to the client library | jump to "
      "the end | the list in memory | at most | the server | the database |\n"
      "|---|---|---|---|---|---|---|---|---|---|---|---|");
}

void Print(const TGrowthServer& Server, std::int64_t Rows, const TFigures& Figures, double DatabaseBytes) {
  std::printf("| %s | %s | %s | %s | %s | %s | %.2f | %s | %s | %s | %s | %s |\n", Server.Name().c_str(),
              qPrintable(QLocale(QLocale::English).toString(static_cast<qlonglong>(Rows))),
              Time(Figures.FirstPage).c_str(), Time(Figures.CommonSearch).c_str(), Time(Figures.RareSearch).c_str(),
              Time(Figures.Whole).c_str(), Figures.Whole / Figures.Plain, Time(Figures.End).c_str(),
              Size(Figures.Memory.Snapshot).c_str(), Size(Figures.Memory.Peak).c_str(), Size(Figures.Server).c_str(),
              Size(DatabaseBytes).c_str());
  std::fflush(stdout);
}

int Refuse(const QString& Why) {
  fprintf(stderr, "growth: %s\n", qPrintable(Why));
  return 2;
}

// The offscreen platform remarks on every window that it cannot pass size hints on.
void Quiet(QtMsgType Type, const QMessageLogContext&, const QString& Message) {
  if (Type != QtDebugMsg && !Message.contains(QLatin1String("propagateSizeHints"))) {
    fprintf(stderr, "%s\n", qPrintable(Message));
  }
}

int Run(const QStringList& Servers, const QStringList& Rows) {
  for (const QString& Each : Rows) {
    const qlonglong Count = Each.toLongLong();
    if (Count < bench::GrowthStep || Count > 10'000'000 || Count % bench::GrowthStep != 0) {
      return Refuse("The rows are multiples of ten thousand, ten million at the most.");
    }
  }
  PrintTitles();
  for (const QString& Name : Servers) {
    const auto Server = bench::NewGrowthServer(Name.toStdString());
    if (Server == nullptr) return Refuse("There is no " + Name + ": choose of sqlite, postgresql, mariadb.");
    if (!Server->Reason().empty()) return Refuse(QString::fromStdString(Server->Reason()));
    for (const QString& Each : Rows) {
      const std::string Address = Server->Address(Each.toLongLong());
      const TFigures Figures = Measure(*Server, Address, Each.toLongLong());
      Print(*Server, Each.toLongLong(), Figures, Server->DatabaseBytes(Address));
    }
  }
  return 0;
}

}  // namespace

int main(int Count, char* Args[]) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(Quiet);
  const QApplication Application(Count, Args);
  QCommandLineParser Parser;
  Parser.addHelpOption();
  Parser.addOptions({{"rows", "How many customers, separated by commas.", "counts", "10000,100000,1000000,5000000"},
                     {"servers", "Of sqlite, postgresql and mariadb.", "names", "sqlite,postgresql,mariadb"}});
  Parser.process(Application);
  try {
    return Run(Parser.value("servers").split(u','), Parser.value("rows").split(u','));
  } catch (const std::exception& Error) {
    return Refuse(QString::fromUtf8(Error.what()));
  }
}
