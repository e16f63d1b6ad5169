// Runs a fuzz target without libFuzzer: its corpus, then random changes of it, the same ones for the same seed.
#include <cstdio>
#include <cstdlib>
#include <random>

#include "fuzz/FuzzTarget.h"

namespace {

constexpr std::size_t LongestText = 4096;

class TMutator {
 public:
  TMutator(const std::vector<std::string>& Texts, unsigned Seed) : Texts_(Texts), Random_(Seed) {}

  std::string Next() {
    std::string Text = Any();
    for (std::size_t Changes = 1 + Below(4); Changes > 0; --Changes) Change(Text);
    if (Text.size() > LongestText) Text.resize(LongestText);
    return Text;
  }

 private:
  std::size_t Below(std::size_t End) { return End == 0 ? 0 : Random_() % End; }
  const std::string& Any() { return Texts_[Below(Texts_.size())]; }
  std::string Part(const std::string& Text) {
    const std::size_t First = Below(Text.size());
    return Text.substr(First, 1 + Below(Text.size() - First));
  }

  void Change(std::string& Text) {
    const std::size_t At = Below(Text.size() + 1);
    switch (Below(6)) {
      case 0:  // any byte
        Text.insert(At, 1, static_cast<char>(Below(256)));
        break;
      case 1:  // one that means something
        Text.insert(At, 1, "'\"[]();-/*.,% \n\r0a"[Below(18)]);
        break;
      case 2:
        if (!Text.empty()) Text.erase(Below(Text.size()), 1 + Below(4));
        break;
      case 3:  // a part of another one
        Text.insert(At, Part(Any()));
        break;
      case 4:
        Text.insert(At, " " + Any() + " ");
        break;
      default:
        Text += Part(Text);
        break;
    }
  }

  const std::vector<std::string>& Texts_;
  std::mt19937 Random_;
};

void Run(const std::string& Text) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(Text.data()), Text.size());
}

}  // namespace

int main(int Count, char** Args) {
  const unsigned long Mutations = Count > 1 ? std::strtoul(Args[1], nullptr, 10) : 100000;
  const unsigned long Seed = Count > 2 ? std::strtoul(Args[2], nullptr, 10) : 1;
  const std::vector<std::string> Texts = Corpus();
  for (const std::string& Text : Texts) Run(Text);
  TMutator Mutator(Texts, static_cast<unsigned>(Seed));
  for (unsigned long Number = 0; Number < Mutations; ++Number) Run(Mutator.Next());
  std::printf("%zu texts and %lu changed ones: nothing was written.\n", Texts.size(), Mutations);
  return 0;
}
