#include <array>

#include "sample/tables/Codes.h"
#include "sample/tables/Company.h"
#include "sample/tables/Parties.h"
#include "sample/words/Firms.h"
#include "sample/words/People.h"
#include "sample/words/Places.h"

namespace sample {

namespace {

using TText = std::optional<std::string>;

/// Names that make a search think; the other vendors' names are left to chance.
std::optional<std::string_view> OddVendor(std::int64_t Number) {
  static constexpr auto Names = std::to_array<std::string_view>({
      "O'Reilly's Timber & Truss",
      "Bäcker Maschinenbau GmbH",
      "100% Aluminium Pty Ltd",
      "Piñata Paints S.A.",
      "Šumava Laminates",
      "Tool_Hire Australia",
      "North\\South Freight",
      "\"Quick\" Couriers",
      "Große Fliesen AG",
      "",
  });
  return Number <= std::ssize(Names) ? std::optional(Names[static_cast<std::size_t>(Number - 1)]) : std::nullopt;
}

TText AnyEmail(TRandom& Random, std::string_view Firm) {
  const std::int64_t Share = Random.Below(100);
  if (Share < 70) {
    return EmailAt(Random.Percent(50) ? "orders" : "accounts", Firm);
  }
  return Share < 85 ? TText("") : TText();
}

void AddVendor(TRows& Rows, const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("Vend", Number);
  const auto Odd = OddVendor(Number);
  const std::string Company = Odd ? std::string(*Odd) : AnySupplier(Random);
  const TText Addr1 = Random.Percent(4) ? TText() : AnyStreetAddress(Random);
  const TText Zip = Random.Percent(4) ? TText() : AreaZip(Plan, Random.Below(Plan.Areas));
  const TText Phone = Random.Percent(6) ? TText() : AnyPhone(Random, Zip.value_or(""));
  Rows.Add({VendorID(Number), Company, Addr1, Zip, Phone, AnyEmail(Random, Company), IsContractor(Number),
            Random.Percent(18), Random.Percent(8)});
}

}  // namespace

std::string VendorID(std::int64_t Number) {
  return LetterCode('V', Number);
}

void WriteVendors(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("Vend", {"ID", "Company", "Addr1", "Zip", "Phone", "Email", "Contractor", "Service", "InActive"},
              [&](TRows& Rows) {
                for (std::int64_t Number = 1; Number <= Plan.Vendors; ++Number) {
                  AddVendor(Rows, Plan, Number);
                }
              });
}

}  // namespace sample
