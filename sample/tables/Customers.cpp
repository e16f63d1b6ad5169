// Customers with their balances, prospects, and the people at both.
#include <array>

#include "sample/tables/Codes.h"
#include "sample/tables/Company.h"
#include "sample/tables/Entities.h"
#include "sample/tables/Parties.h"
#include "sample/words/Firms.h"
#include "sample/words/People.h"
#include "sample/words/Places.h"

namespace sample {

namespace {

using TText = std::optional<std::string>;

struct TCustomer {
  TText FirstName;
  TText Company;
  TText Addr1;
  TText Zip;
  TText Phone;
  TText Contact;
  TText Email;
  std::optional<bool> Inactive = false;
};

/// The first customers are chosen by hand.
TCustomer OddCustomer(std::int64_t Number) {
  static const std::array<TCustomer, 16> Customers = {{
      {{}, "O'Neil Plumbing Pty Ltd", "12 High St ", "4001", "(07) 5550 0101", "Joanne O'Neil", "jo@oneil.example"},
      {{}, "D'Arcy & Söhne Café", "3 Wharf Rd", "2000", "(02) 5550 0102", "Fiona D'Arcy", "fiona@darcy.example"},
      {{}, "Muñoz, Núñez & Cía", "Unit 2/77 King St", "3000", "(03) 5550 0103", "José Muñoz", "jose@munoz.example"},
      {{}, "Großmann Straßenbau GmbH", "8 Depot Ln", "5000", "(08) 5550 0104", "Jörg Großmann", "joerg@gross.example"},
      {{}, "Šimek Glazing", "41 Forge Ct", "6000", "(08) 5550 0105", "Štefan Šimek", "stefan@simek.example"},
      {{}, "50% Off Tile Warehouse", "100 Industrial Dr", "4000", "(07) 5550 0106", "Wayne Young", {}},
      {{}, "Under_Score Signs", "5 Mill St", "7000", "(03) 5550 0107", "Mei Chan", "mei_chan@under-score.example"},
      {{}, "Back\\Slash Media", "6 Mill St", "7000", "(03) 5550 0108", "Ian Marsh", "ian@backslash.example"},
      {{}, "\"The Corner\" Bakery", "1 Church St", "2600", "(02) 5550 0109", "Ana Silva", "ana@corner.example"},
      {"Zoë", "Östlund", {}, {}, "0491 570 110", "Zoë Östlund", "zoe@ostlund.example"},
      {"Renée", "Le Blanc", {}, "3004", "0491 570 111", "Renée Le Blanc", ""},
      {"Siân", "O'Shea", "14 Railway Tce", {}, {}, "Siân O'Shea", {}},
      {"", "", "", "", "", "", ""},
      {{}, {}, {}, {}, {}, {}, {}},
      {{}, "No Flag Joinery", "9 Quarry Rd", "4500", "(07) 5550 0115", {}, {}, std::nullopt},
      {{},
       "ÉCLAIR & Éclair éclairage",
       "2 Tannery Ln",
       "2010",
       "(02) 5550 0116",
       "Chloé García",
       "c@eclair.example",
       true},
  }};
  return Customers.at(static_cast<std::size_t>(Number - 1));
}
constexpr std::int64_t OddCustomers = 16;

TText AnyEmail(TRandom& Random, std::string_view Person, std::string_view Firm) {
  const std::int64_t Share = Random.Below(100);
  if (Share < 60) {
    return EmailAt(Person, Firm);
  }
  return Share < 80 ? TText("") : TText();
}

TCustomer CustomerAt(const TPlan& Plan, std::int64_t Number) {
  if (Number <= OddCustomers) {
    return OddCustomer(Number);
  }
  TRandom Random = Plan.Chance("Cust", Number);
  const TPerson Person = AnyPerson(Random);
  TCustomer Customer;
  if (Random.Percent(30)) {
    Customer.FirstName = Person.FirstName;
    Customer.Company = Person.Surname;
  } else {
    Customer.Company = AnyTradeFirm(Random);
  }
  if (!Random.Percent(3)) {
    Customer.Addr1 = AnyStreetAddress(Random);
  }
  if (!Random.Percent(3)) {
    Customer.Zip = AreaZip(Plan, Random.Below(Plan.Areas));
  }
  if (!Random.Percent(5)) {
    Customer.Phone = AnyPhone(Random, Customer.Zip.value_or(""));
  }
  Customer.Contact = Person.FullName();
  Customer.Email = AnyEmail(Random, Person.FirstName, *Customer.Company);
  Customer.Inactive = Random.Percent(8);
  return Customer;
}

/// One customer in twenty has never had anything on account.
bool HasBalance(std::int64_t Number) {
  return Number % 20 != 0;
}

void AddBalance(TRows& Rows, const TPlan& Plan, std::int64_t Number) {
  if (Number == 1) {
    Rows.Add({CustomerID(1), 150.00, 20.00});
    return;
  }
  TRandom Random = Plan.Chance("CustBal", Number);
  const std::int64_t Cents = Random.Percent(30) ? 0 : Random.Between(-50'000, 2'500'000);
  std::optional<double> Credit = 0.0;
  if (Random.Percent(20)) {
    Credit = static_cast<double>(Random.Between(100, 90'000)) / 100;
  } else if (Random.Percent(2)) {
    Credit.reset();
  }
  Rows.Add({CustomerID(Number), static_cast<double>(Cents) / 100, Credit});
}

TCustomer ProspectAt(const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("Prospect", Number);
  const TPerson Person = AnyPerson(Random);
  TCustomer Prospect;
  Prospect.Company = Number == 1 ? "O'Brien & Çelik Homes (100% new)" : AnyTradeFirm(Random);
  Prospect.Contact = Person.FullName();
  Prospect.Email = Number == 1 ? EmailAt(Person.FirstName, *Prospect.Company)
                               : AnyEmail(Random, Person.FirstName, *Prospect.Company);
  return Prospect;
}

/// Up to three people at one firm. The first firm has three: two with an address, one without.
void AddPeople(TRows& Rows, const TPlan& Plan, std::string_view Subject, std::int64_t Number, const TText& CustID,
               const TText& Prospect, std::string_view Firm) {
  TRandom Random = Plan.Chance(Subject, Number);
  const std::int64_t Count = Number == 1 ? 3 : Random.Percent(50) ? 0 : Random.Below(4);
  for (std::int64_t Index = 0; Index < Count; ++Index) {
    const TPerson Person = AnyPerson(Random);
    const TText Email = Number > 1  ? AnyEmail(Random, Person.FirstName, Firm)
                        : Index < 2 ? TText(EmailAt(Person.FirstName, Firm))
                                    : TText();
    Rows.Add({CustID, Prospect, Person.FullName(), Email});
  }
}

}  // namespace

std::string CustomerID(std::int64_t Number) {
  return LetterCode('C', Number);
}
std::string ProspectID(std::int64_t Number) {
  return LetterCode('P', Number);
}

std::int64_t AnyCustomer(TRandom& Random, const TPlan& Plan) {
  constexpr std::int64_t Regulars = 20;
  return Random.Percent(10) ? Random.Between(1, Regulars) : Random.Between(1, Plan.Customers);
}

void WriteCustomers(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("Cust", {"ID", "FirstName", "Company", "Addr1", "Zip", "Phone", "Contact", "Email", "Entity", "Inactive"},
              [&](TRows& Rows) {
                for (std::int64_t Number = 1; Number <= Plan.Customers; ++Number) {
                  const TCustomer C = CustomerAt(Plan, Number);
                  Rows.Add({CustomerID(Number), C.FirstName, C.Company, C.Addr1, C.Zip, C.Phone, C.Contact, C.Email,
                            EntityOfCustomer(Number), C.Inactive});
                }
              });
  Filler.Fill("CustBal", {"CustID", "Balance", "Credit"}, [&](TRows& Rows) {
    for (std::int64_t Number = 1; Number <= Plan.Customers; ++Number) {
      if (HasBalance(Number)) {
        AddBalance(Rows, Plan, Number);
      }
    }
  });
}

void WriteContacts(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("Prospect", {"ID", "Company", "Contact", "Email"}, [&](TRows& Rows) {
    for (std::int64_t Number = 1; Number <= Plan.Prospects; ++Number) {
      const TCustomer P = ProspectAt(Plan, Number);
      Rows.Add({ProspectID(Number), P.Company, P.Contact, P.Email});
    }
  });
  Filler.Fill("Contact", {"ID", "ProspectID", "Contact", "Email"}, [&](TRows& Rows) {
    for (std::int64_t Number = 1; Number <= Plan.Customers; ++Number) {
      const TCustomer C = CustomerAt(Plan, Number);
      AddPeople(Rows, Plan, "CustContact", Number, CustomerID(Number), {}, C.Company.value_or(""));
    }
    for (std::int64_t Number = 1; Number <= Plan.Prospects; ++Number) {
      const TCustomer P = ProspectAt(Plan, Number);
      AddPeople(Rows, Plan, "ProspectContact", Number, {}, ProspectID(Number), *P.Company);
    }
    // Somebody met at a trade fair belongs to nobody yet.
    Rows.Add({std::nullopt, std::nullopt, "Thuy O'Hara", "thuy@fair.example"});
  });
}

}  // namespace sample
