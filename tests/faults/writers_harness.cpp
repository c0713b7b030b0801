// writers_harness [SECONDS [PROCESSES [SEED]]]: so many processes add, update and remove entries of
// their own in one library; the first is killed and started again all the time. In the end every
// entry that a process believes stored must be there as it was stored last, and no other.
#include <algorithm>
#include <chrono>
#include <thread>

#include "faults/harness.h"
#include "faults/watched_file_layer.h"
#include "faults/write_paths.h"

namespace zentab::test {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr unsigned kMostWriters = 8;
constexpr int kNames = 40;
constexpr int kEntries = 300;  // of nobody's

// An entry by the first time of its curve, 0 while there is none. The two differ while it changes.
struct Slot {
  std::atomic<int> stored = 0, intended = 0;
};

struct Writer {
  std::array<Slot, kNames> slots;
  std::atomic<int> last = 0;  // the last curve's first time
  std::atomic<long> done = 0, timeouts = 0, faults = 0, longest = 0;
};

struct State {
  std::array<Writer, kMostWriters> writers;
  std::atomic<bool> stops = false;
};

std::string NameOf(unsigned writer, int slot) {
  return "P" + std::to_string(writer) + "-" + std::to_string(slot);
}

// The first time of an entry's curve in the file's bytes.
int StoredIn(const std::string& bytes, const std::string& name) {
  const std::string begin = "{\"" + name + "\"\t(1;";
  const std::size_t at = bytes.find(begin);
  return at == std::string::npos ? 0 : std::stoi(bytes.substr(at + begin.size(), 9)) - 1;
}

// One process: a start of the editor, and changes until it is stopped.
class WriterProcess {
 public:
  WriterProcess(State& state, unsigned number, const fs::path& folder, unsigned seed)
      : state_(state),
        self_(state.writers.at(number)),
        number_(number),
        place_(folder, platform::SystemFiles()),
        random_(seed) {
    // What the one before was killed at is done or not.
    const std::string bytes = ReadFile(folder / kLibrary);
    for (int slot = 0; slot < kNames; ++slot) {
      Slot& entry = self_.slots.at(static_cast<std::size_t>(slot));
      const int found = StoredIn(bytes, NameOf(number, slot));
      if (found != entry.stored && found != entry.intended) ++self_.faults;
      entry.stored = entry.intended = found;
    }
  }

  bool Work() {
    do {
      Change(static_cast<int>(random_() % kNames));
    } while (!state_.stops);
    return true;
  }

 private:
  void Change(int slot) {
    Slot& entry = self_.slots.at(static_cast<std::size_t>(slot));
    const std::string name = NameOf(number_, slot);
    const bool removes = entry.stored != 0 && random_() % 4 == 0;
    entry.intended = removes ? 0 : ++self_.last;
    FillGrid(place_.session, entry.intended);
    const Clock::time_point start = Clock::now();
    const bool succeeded = removes             ? place_.Remove(name)
                           : entry.stored == 0 ? place_.Add(name)
                                               : place_.Update(name);
    const auto time = std::chrono::duration_cast<milliseconds>(Clock::now() - start);
    self_.longest = std::max<long>(self_.longest, time.count());
    if (succeeded) {
      entry.stored = entry.intended.load();
      ++self_.done;
      return;
    }
    entry.intended = entry.stored.load();
    constexpr milliseconds kLockTimeout(4900);
    ++(time > kLockTimeout ? self_.timeouts : self_.faults);
  }

  State& state_;
  Writer& self_;
  unsigned number_;
  Workplace place_;
  std::mt19937 random_;
};

class WritersHarness {
 public:
  WritersHarness(unsigned processes, unsigned seed) : processes_(processes), random_(seed) {
    FillFolder(folder_.Path(), before_);
  }

  void Run(std::chrono::seconds duration) {
    std::vector<pid_t> children;
    for (unsigned writer = 0; writer < processes_; ++writer) children.push_back(Start(writer));
    const Clock::time_point end = Clock::now() + duration;
    while (Clock::now() < end) {
      constexpr int kShortest = 20, kLongest = 300;
      std::this_thread::sleep_for(
          milliseconds(std::uniform_int_distribution<int>(kShortest, kLongest)(random_)));
      ::kill(children[0], SIGKILL);
      const int status = StatusOf(children[0]);
      verdict_.Check(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL, "the first one fell");
      ++kills_;
      children[0] = Start(0);
    }
    state_->stops = true;
    for (const pid_t child : children) {
      verdict_.Check(StatusOf(child) == 0, "a process has not ended as it should");
    }
    seconds_ = static_cast<double>(duration.count());
  }

  int Report() {
    for (unsigned number = 0; number < processes_; ++number) {
      const Writer& writer = state_->writers.at(number);
      std::printf("  process %u: %ld changes (%.0f a second), %ld lock timeouts, longest %ld ms\n",
                  number, writer.done.load(), static_cast<double>(writer.done) / seconds_,
                  writer.timeouts.load(), writer.longest.load());
      verdict_.Check(writer.done > 0, "a process has never changed anything");
      verdict_.Check(writer.faults == 0, "process " + std::to_string(number) + ": " +
                                             std::to_string(writer.faults) +
                                             " changes refused or lost");
    }
    std::printf("  the first one was killed %d times\n", kills_);
    CheckLibrary();
    return verdict_.Finish();
  }

 private:
  pid_t Start(unsigned writer) {
    const auto seed = static_cast<unsigned>(random_());
    return InChild(
        [&, seed] { return WriterProcess(*state_, writer, folder_.Path(), seed).Work(); });
  }

  // Nobody's entries in their order, and everybody's once each.
  void CheckLibrary() {
    Files now = ReadFolder(folder_.Path());
    std::string bytes = now[std::string(kLibrary)];
    std::string kept = before_.at(std::string(kLibrary)) + "\r\n";
    verdict_.Check(bytes.starts_with(kept), "an entry that nobody touches has changed");
    bytes.erase(0, kept.size());
    int stored = 0;
    for (unsigned writer = 0; writer < processes_; ++writer) {
      for (int slot = 0; slot < kNames; ++slot) {
        const int time = state_->writers.at(writer).slots.at(static_cast<std::size_t>(slot)).stored;
        if (time == 0) continue;
        const std::string line = CurveLine(NameOf(writer, slot), time);
        const std::size_t at = bytes.find(line);
        verdict_.Check(at != std::string::npos, NameOf(writer, slot) + " is lost");
        if (at != std::string::npos) bytes.erase(at, line.size());
        ++stored;
      }
    }
    std::printf("  %d entries are stored\n", stored);
    verdict_.Check(bytes.empty(), "there is more in the library: " + bytes);
    // The backup is of some time in between.
    const std::string backup = std::string(kLibrary) + ".bak";
    verdict_.Check(now[backup].starts_with(before_.at(std::string(kLibrary))), "a broken backup");
    now[backup] = before_.at(backup);
    now[std::string(kLibrary)] = before_.at(std::string(kLibrary));
    verdict_.Check(now == before_, "files were left behind");
  }

  const Files before_ = Installation(kEntries);
  unsigned processes_;
  std::mt19937 random_;
  ScratchFolder folder_;
  SharedMemory<State> state_;
  Verdict verdict_;
  double seconds_ = 0.0;
  int kills_ = 0;
};

}  // namespace
}  // namespace zentab::test

int main(int count, char** arguments) {
  using namespace zentab::test;
  const unsigned seconds = Argument(count, arguments, 1, 60);
  const unsigned processes = std::min(Argument(count, arguments, 2, 2), kMostWriters);
  const unsigned seed = Argument(count, arguments, 3, 1);
  std::printf("%u processes for %u s, seed %u\n", processes, seconds, seed);
  WritersHarness harness(processes, seed);
  harness.Run(std::chrono::seconds(seconds));
  return harness.Report();
}
