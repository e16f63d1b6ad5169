// The pick of a job by its documents, and that of a group's member.
#include <QTest>
#include <algorithm>

#include "OEDocQueries.h"
#include "picks/orders/uPickOEJob.h"
#include "picks/orders/uPickOEMemberOfGroup.h"

using namespace orders;
using support::DrivePick;
using uPickOEJob::CallPickOEJob;
using uPickOEJob::TfrmPickOEJob;
using uPickOEMemberOfGroup::CallPickOEMemberOfGroup;
using uPickOEMemberOfGroup::TfrmPickOEMemberOfGroup;

namespace {

const QString JobColumns = "SELECT j.JobNo, j.[Desc], o.Type, o.Number, ";
const QString JobTables = "FROM Jobs j LEFT OUTER JOIN OE o ON (j.JobNo = o.JobNo)";

const QString GroupTable = "  INNER JOIN OEQuoteGrps G ON G.Quote = O.Number AND g.QuoteType = o.Type";
const QString GroupFilter =
    "WHERE O.Type = 'M' | AND G.Customer = 'C1' | AND G.Parent = '900' | AND g.ParentType = 'G'";
const QString Members = DocumentTables + " | " + GroupTable + " | " + GroupFilter;

const std::vector<QString> MemberOrders = {"UPPER(O.JobNo) SortFld", "UPPER(J.[Desc]) SortFld",
                                           "UPPER(O.Number) SortFld", "O.[Date] SortFld"};

// Group 900 of customer C1 with the members 101 to 103, and members of other groups.
class TGroups : public TSmallCompany {
 public:
  TGroups() {
    AddMember("101", "J2", "2024-03-01", "900");
    AddMember("102", "J1", "2024-01-01", "900");
    AddMember("103", "J1", "2024-02-01", "900");
    AddMember("201", "J1", "2024-01-15", "901");
  }

  void AddMember(const QString& Number, const QString& JobNo, const QString& Date, const QString& Group,
                 const QString& Customer = "C1", const QString& GroupType = "G") {
    Add(*this, {"M", Number, "C1", JobNo, Date});
    Execute("INSERT INTO OEQuoteGrps (Quote, QuoteType, Parent, ParentType, Customer) VALUES (?, 'M', ?, ?, ?)",
            {Number, Group, GroupType, Customer});
  }
};

std::unique_ptr<TfrmPickOEMemberOfGroup> CreateMembers(TTestCompany& Company) {
  return TfrmPickOEMemberOfGroup::Create(Company.Connection(), "C1", "900");
}

}  // namespace

class tst_PickOEJobAndMembers : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { UseAustralianFormats(); }

  void shouldHaveTheFieldsAndColumnsOfAJob() {
    const support::TNumberedTexts Texts;
    TSmallCompany Company;
    const auto Dialog = TfrmPickOEJob::Create(Company.Connection());
    QCOMPARE(Fields(*Dialog), QString("JobNo string 6 | Desc string 25 | Type string 1 | Number string 8"));
    QCOMPARE(Columns(*Dialog), QString("JobNo T3000 right/right | Desc T3001 left/left | Type T3147 centre/centre | "
                                       "Number T3021 right/right"));
    QCOMPARE(WidthOf(*Dialog, Dialog->qryList_Desc), 120);
    QCOMPARE(WidthOf(*Dialog, Dialog->qryList_Type), 16);
    QCOMPARE(Dialog->PickCaption, "T152");
    QCOMPARE(Dialog->AvailableCaption, "T426");
    QCOMPARE(Joined(support::Items(*Dialog->rgFindBy)), QString("T3000 | T3001 | T3022 | T3021"));
    QCOMPARE(Joined(support::Items(*Dialog->rgOrderBy)), QString("T3000 | T3001 | T3022 | T3021"));
    QCOMPARE(Dialog->rgFindBy->ItemIndex(), 1);
    QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 1);
  }

  void shouldAskForJobsLetterByLetter() {
    TSmallCompany Company;
    const auto Dialog = TfrmPickOEJob::Create(Company.Connection());
    picks::TSqlParts Parts;
    Parts.Selects = {JobColumns + "UPPER(j.JobNo) SortFld", JobColumns + "UPPER(j.[Desc]) SortFld",
                     JobColumns + "UPPER(o.Type) SortFld", JobColumns + "UPPER(o.Number) SortFld"};
    Parts.From = JobTables + " | WHERE 0=0";
    Parts.Typed = " o'neil 5%s ";
    Parts.Finds = {"AND UPPER(j.JobNo) LIKE '%O''NEIL 5%S%'", "AND UPPER(j.[Desc]) LIKE '%O''NEIL 5%S%'",
                   "AND UPPER(o.Type) LIKE '%O''NEIL 5%S%'", "AND UPPER(o.Number) LIKE '%O''NEIL 5%S%'"};
    picks::CompareSql(*Dialog, Parts);
  }

  void shouldListAJobOnceForEachOfItsDocuments() {
    TSmallCompany Company;
    Company.Execute("INSERT INTO Jobs VALUES ('J3', 'Attic')");
    Add(Company, {"O", "3", "C1", "J1"});
    Add(Company, {"I", "2", "C1", "J1"});
    Add(Company, {"Q", "1", "C9", "J1"});
    Add(Company, {"Q", "4", "C1", "J2"});
    Add(Company, {"Q", "5", "C1", "J9"});
    const auto Dialog = TfrmPickOEJob::Create(Company.Connection());
    QCOMPARE(Column(*Dialog, "Desc"), QString("Attic | bathroom | Kitchen | Kitchen | Kitchen"));
    SqlFor(*Dialog, 3, false);
    QCOMPARE(Column(*Dialog, "Number"), QString(" | 1 | 2 | 3 | 4"));
    QCOMPARE(Column(*Dialog, "Type"), QString(" | Q | I | O | Q"));
    QCOMPARE(Column(*Dialog, "JobNo"), QString("J3 | J1 | J1 | J1 | J2"));
    SqlFor(*Dialog, 3, false, 2, "q");
    QCOMPARE(Column(*Dialog, "Number"), QString("1 | 4"));
    SqlFor(*Dialog, 3, false, 1, "KITCH");
    QCOMPARE(Column(*Dialog, "Number"), QString("1 | 2 | 3"));
  }

  void shouldReturnAJobWithoutDocuments() {
    TSmallCompany Company;
    Add(Company, {"O", "1", "C1", "J1"});
    std::string JobNo = "before";
    QVERIFY(DrivePick([&] { return CallPickOEJob(Company.Connection(), JobNo); },
                      [](TDocPickBase& Dialog) {
                        QCOMPARE(Column(Dialog, "Number"), QString(" | 1"));
                        support::DoubleClickRow(Dialog, 0);
                      }));
    QCOMPARE(JobNo, "J2");
    QVERIFY(!DrivePick([&] { return CallPickOEJob(Company.Connection(), JobNo); },
                       [](TDocPickBase& Dialog) { support::ClickCancel(Dialog); }));
    QCOMPARE(JobNo, "");
  }

  void shouldShowAllJobsWhenTheSearchFails() {
    TSmallCompany Company;
    const auto Dialog = TfrmPickOEJob::Create(Company.Connection());
    const picks::TShortStatements Short(Company.Database(), ShortStatement);
    QCOMPARE(SqlFor(*Dialog, 0, true, 1, TooLong()),
             JobColumns + "UPPER(j.JobNo) SortFld\n" + JobTables + "\nWHERE 0=0 | ORDER BY SortFld DESC");
    QCOMPARE(Dialog->qryList_->RecordCount(), 2);
  }

  void shouldListTheJobsOfTheSampleCompany() {
    TTestCompany Company;
    const auto Dialog = TfrmPickOEJob::Create(Company.Connection());
    QCOMPARE(Dialog->qryList_->RecordCount(),
             std::stoi(Company.Text("SELECT COUNT(*) FROM Jobs j LEFT JOIN OE o ON j.JobNo = o.JobNo")));
    const std::vector<std::string> Numbers = support::Column(*Dialog, "Number");
    QVERIFY(std::find(Numbers.begin(), Numbers.end(), "") != Numbers.end());
  }

  void shouldLookLikeTheDocumentPickOfOneCustomer() {
    const support::TNumberedTexts Texts;
    TGroups Company;
    const auto Dialog = CreateMembers(Company);
    QCOMPARE(Fields(*Dialog), DocumentFields);
    QCOMPARE(Columns(*Dialog), DocumentGridOfCustomer);
    QCOMPARE(Dialog->PickCaption, "T575");
    QCOMPARE(Dialog->AvailableCaption, "T94");
    QCOMPARE(Joined(support::Items(*Dialog->rgFindBy)), QString("T3147 | T3000 | T3001 | T3021 | T3002"));
  }

  void shouldOpenByDateWithTheNumberShown() {
    TGroups Company;
    const auto Dialog = CreateMembers(Company);
    QCOMPARE(Dialog->rgFindBy->ItemIndex(), 3);
    QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 3);
    QCOMPARE(Sql(*Dialog), DocumentColumns + "O.[Date] SortFld | " + Members + " | ORDER BY SortFld");
    QCOMPARE(Column(*Dialog, "Number"), QString("102 | 103 | 101"));
  }

  void shouldTakeThePositionsForJobDescriptionNumberAndDate() {
    TGroups Company;
    const auto Dialog = CreateMembers(Company);
    const QStringList Finds = {"AND UPPER(O.JobNo) LIKE '%1/2/2024%'", "AND UPPER(J.[Desc]) LIKE '%1/2/2024%'",
                               "AND UPPER(O.Number) LIKE '%1/2/2024%'", "AND O.[Date] = '2024-02-01'"};
    for (int OrderBy = 0; OrderBy < 4; ++OrderBy) {
      for (const bool Descending : {false, true}) {
        const QString Start = DocumentColumns + MemberOrders[static_cast<std::size_t>(OrderBy)] + " | " + Members;
        const QString End = Descending ? " | ORDER BY SortFld DESC" : " | ORDER BY SortFld";
        QCOMPARE(SqlFor(*Dialog, OrderBy, Descending), Start + End);
        for (int FindBy = 0; FindBy < 4; ++FindBy) {
          QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, FindBy, "1/2/2024"), Start + " | " + Finds[FindBy] + End);
        }
        // The fifth, shown as the date, finds nothing out.
        QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, 4, "1/2/2024"), Start + End);
        QCOMPARE(Dialog->qryList_->RecordCount(), 3);
      }
    }
  }

  void shouldFindByThePositionsNotByWhatTheyShow() {
    TGroups Company;
    const auto Dialog = CreateMembers(Company);
    const auto Found = [&](int FindBy, const QString& Text) {
      SqlFor(*Dialog, 2, false, FindBy, Text);
      return Column(*Dialog, "Number");
    };
    QCOMPARE(Found(0, "j2"), QString("101"));
    QCOMPARE(Found(1, "kitchen"), QString("102 | 103"));
    QCOMPARE(Found(2, "03"), QString("103"));
    QCOMPARE(Found(3, "1/3/2024"), QString("101"));
  }

  void shouldRunTheDocumentsQueryFirst() {
    TGroups Company;
    const auto Dialog = CreateMembers(Company);
    std::vector<std::string> Opened;
    Dialog->qryList_->AfterOpen = [&](ads::TDataSet&) { Opened.push_back(Sql(*Dialog).toStdString()); };
    SqlFor(*Dialog, 3, false, 3, "1/2/2024");
    QCOMPARE(Opened.size(), std::size_t{2});
    QCOMPARE(Text(Opened[0]), DocumentColumns + "UPPER(O.Number) SortFld | " + DocumentTables +
                                  " | WHERE 0=0 | AND O.Type IN ('M') | AND o.ID = 'C1' | "
                                  "AND UPPER(O.Number) LIKE '%1/2/2024%' | ORDER BY SortFld");
    QCOMPARE(Text(Opened[1]),
             DocumentColumns + "O.[Date] SortFld | " + Members + " | AND O.[Date] = '2024-02-01' | ORDER BY SortFld");
  }

  void shouldCheckForADateUnderTheNumber() {
    TGroups Company;
    const support::TErrorBoxes Boxes;
    std::string DocNo;
    QVERIFY(DrivePick([&] { return CallPickOEMemberOfGroup(Company.Connection(), "C1", "900", DocNo); },
                      [](TDocPickBase& Dialog) {
                        Dialog.qryList_->SetRecNo(2);
                        const QString Before = Sql(Dialog);
                        support::TypeFind(Dialog, "101");
                        QCOMPARE(Column(Dialog, "Number"), QString("102 | 103 | 101"));
                        QCOMPARE(Sql(Dialog), Before);
                        QCOMPARE(Dialog.edFind->text(), QString("101"));
                        support::ClickOK(Dialog);
                      }));
    QCOMPARE(Joined(Boxes.Messages()), NoDate);
    QCOMPARE(DocNo, "103");
  }

  // The documents were read before the date is found wrong, so the members have to be read anew: as they are by then.
  void shouldAskForTheMembersAgainAfterAWrongDate() {
    TGroups Company;
    const auto Dialog = CreateMembers(Company);
    const QString Before = Sql(*Dialog);
    std::vector<std::string> Opened;
    Dialog->qryList_->AfterOpen = [&](ads::TDataSet&) { Opened.push_back(Sql(*Dialog).toStdString()); };
    Company.AddMember("104", "J1", "2024-01-10", "900");
    picks::Ask(*Dialog, 3, false, 3, "101");
    QCOMPARE(Failure<zulcommon::EZULException>([&] { Dialog->CallSetSQL(); }), NoDate);
    QCOMPARE(Opened.size(), std::size_t{2});
    QVERIFY(Text(Opened[0]).contains("UPPER(O.Number) LIKE '%101%'"));
    QCOMPARE(Text(Opened[1]), Before);
    QCOMPARE(Sql(*Dialog), Before);
    QCOMPARE(Column(*Dialog, "Number"), QString("102 | 104 | 103 | 101"));
  }

  void shouldCheckForADateUnderTheDate() {
    TGroups Company;
    const auto Dialog = CreateMembers(Company);
    const QString Before = Sql(*Dialog);
    picks::Ask(*Dialog, 3, false, 4, "101");
    QCOMPARE(Failure<zulcommon::EZULException>([&] { Dialog->CallSetSQL(); }), NoDate);
    QCOMPARE(Sql(*Dialog), Before);
    QCOMPARE(Column(*Dialog, "Number"), QString("102 | 103 | 101"));
  }

  void shouldReportTheFifthOrder() {
    TGroups Company;
    const auto Dialog = CreateMembers(Company);
    for (const char* Find : {"", "1/2/2024"}) {
      picks::Ask(*Dialog, 4, true, 3, Find);
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->CallSetSQL());
      QCOMPARE(Sql(*Dialog), QString(Members).replace(" | ", "\n") + " | ORDER BY SortFld DESC");
      QCOMPARE(Column(*Dialog, "Number"), QString("102 | 103 | 101"));
    }
    QVERIFY(Dialog->actOK->isEnabled());
  }

  void shouldShowTheFifthOrdersErrorOverTheUnchangedList() {
    TGroups Company;
    const support::TErrorBoxes Boxes;
    std::string DocNo = "before";
    QVERIFY(DrivePick([&] { return CallPickOEMemberOfGroup(Company.Connection(), "C1", "900", DocNo); },
                      [&](TDocPickBase& Dialog) {
                        Dialog.qryList_->Last();
                        support::ChooseOrderBy(Dialog, 4);
                        support::ClickBox(Dialog.ckbDesc);
                        QCOMPARE(Boxes.Messages().size(), std::size_t{2});
                        QCOMPARE(Column(Dialog, "Number"), QString("102 | 103 | 101"));
                        QCOMPARE(Dialog.qryList_->RecNo(), 3);
                        support::ChooseOrderBy(Dialog, 2);
                        QCOMPARE(Column(Dialog, "Number"), QString("103 | 102 | 101"));
                        support::ClickOK(Dialog);
                      }));
    QCOMPARE(Boxes.Messages().size(), std::size_t{2});
    QCOMPARE(DocNo, "103");
  }

  void shouldListNothingWhenTheListCannotComeBack() {
    TGroups Company;
    const auto Dialog = CreateMembers(Company);
    Company.Execute("DROP TABLE OEQuoteGrps");
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->CallSetSQL());
    QVERIFY(!Dialog->qryList_->Active());
    QVERIFY(!Dialog->actOK->isEnabled());
  }

  void shouldFailWithoutACustomerWhileItIsCreated() {
    TGroups Company;
    for (const char* Customer : {"", "  "}) {
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError,
                               TfrmPickOEMemberOfGroup::Create(Company.Connection(), Customer, "900"));
      std::string DocNo = "before";
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError,
                               CallPickOEMemberOfGroup(Company.Connection(), Customer, "900", DocNo));
      QCOMPARE(DocNo, "");
    }
  }

  void shouldReportQuotesInTheCodes() {
    TGroups Company;
    std::string DocNo = "before";
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickOEMemberOfGroup(Company.Connection(), "O'N", "900", DocNo));
    QCOMPARE(DocNo, "");
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickOEMemberOfGroup(Company.Connection(), "C1", "9'0", DocNo));
  }

  void shouldListOnlyMembersOfTheCustomersGroup() {
    TGroups Company;
    Company.AddMember("301", "J1", "2024-01-02", "900", "C2");       // another customer's
    Company.AddMember("302", "J1", "2024-01-02", "900", "C1", "Q");  // the parent is no group
    Company.AddMember("303", "J9", "2024-01-02", "900");             // without a job
    Add(Company, {"M", "304"});                                      // of no group
    Add(Company, {"Q", "305"});                                      // no member
    Company.Execute("INSERT INTO OEQuoteGrps VALUES ('305', 'Q', '900', 'G', 'C1')");
    // Whose document it is does not count, but whose group.
    Add(Company, {"M", "306", "C2", "J1", "2024-12-31"});
    Company.Execute("INSERT INTO OEQuoteGrps VALUES ('306', 'M', '900', 'G', 'C1')");
    QCOMPARE(Column(*CreateMembers(Company), "Number"), QString("102 | 103 | 101 | 306"));
  }

  void shouldShowAllMembersWhenTheSearchFails() {
    TGroups Company;
    const auto Dialog = CreateMembers(Company);
    const picks::TShortStatements Short(Company.Database(), ShortStatement);
    QCOMPARE(SqlFor(*Dialog, 2, true, 1, TooLong()), DocumentColumns + "UPPER(O.Number) SortFld\n" +
                                                         QString(Members).replace(" | ", "\n") +
                                                         " | ORDER BY SortFld DESC");
    QCOMPARE(Column(*Dialog, "Number"), QString("103 | 102 | 101"));
  }

  void shouldEmptyTheNumberWhenCancelled() {
    TGroups Company;
    std::string DocNo = "before";
    QVERIFY(!DrivePick([&] { return CallPickOEMemberOfGroup(Company.Connection(), "C1", "900", DocNo); },
                       [](TDocPickBase& Dialog) { support::ClickCancel(Dialog); }));
    QCOMPARE(DocNo, "");
  }

  void shouldListTheMembersOfASampleGroup() {
    TTestCompany Company;
    const std::string Group = Company.Text("SELECT Parent FROM OEQuoteGrps WHERE ParentType = 'G'");
    const std::string Customer = Company.Text("SELECT Customer FROM OEQuoteGrps WHERE ParentType = 'G'");
    const auto Dialog = TfrmPickOEMemberOfGroup::Create(Company.Connection(), Customer, Group);
    std::vector<std::string> Numbers = support::Column(*Dialog, "Number");
    std::sort(Numbers.begin(), Numbers.end());
    const QString Query =
        "SELECT g.Quote FROM OEQuoteGrps g JOIN OE o ON o.Number = g.Quote AND o.Type = g.QuoteType JOIN Cust c ON "
        "c.ID "
        "= o.ID JOIN Jobs j ON j.JobNo = o.JobNo WHERE g.Parent = '%1' AND g.ParentType = 'G' AND g.QuoteType = 'M' "
        "ORDER BY g.Quote";
    QCOMPARE(Joined(Numbers), Joined(Company.Texts(Query.arg(Text(Group)))));
    QVERIFY(Numbers.size() > 1);
  }
};

QTEST_MAIN(tst_PickOEJobAndMembers)
#include "tst_PickOEJobAndMembers.moc"
