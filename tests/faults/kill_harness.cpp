// kill_harness [KILLS [ENTRIES [SEED]]]: kills the editor's own code in the middle of changing a
// file, KILLS times at random moments and once at every single step of every way to change one.
// Afterwards the file must be byte for byte the old or the new one, and the next change must work
// and leave nothing else behind.
#include <time.h>

#include <algorithm>
#include <chrono>

#include "faults/harness.h"
#include "faults/watched_file_layer.h"
#include "faults/write_paths.h"
#include "support/listed.h"
#include "support/waiting_file_layer.h"

namespace zentab::test {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::nanoseconds;

// How a child came to its end, and what it left.
struct Tally {
  int kills = 0, before = 0, inside = 0, after = 0;
  int oldFile = 0, newFile = 0, fresh = 0, lock = 0;
  std::map<std::string, int> steps;  // inside
  nanoseconds slowest{};             // of the changes behind a kill
};

double Milliseconds(nanoseconds time) { return static_cast<double>(time.count()) / 1e6; }

class KillHarness {
 public:
  KillHarness(unsigned entries, unsigned seed)
      : installation_(Installation(static_cast<int>(entries))), random_(seed) {}

  void KillAtEveryStep(const WritePath& path) {
    for (const bool hasBackup : {true, false}) {
      Prepare(path, hasBackup);
      bool wasKilled = true;
      for (int moment = 1; wasKilled; ++moment) {
        wasKilled = Run(path, moment);
        Judge(path, wasKilled, exact_);
      }
    }
  }

  void KillAtRandom(const WritePath& path, unsigned kills) {
    Prepare(path, true);
    const Times times = Measure(path);
    std::printf("  %-20s takes %5.2f ms, its steps the last %5.2f ms of them\n",
                std::string(path.what).c_str(), Milliseconds(times.end),
                Milliseconds(times.end - times.firstStep));
    // What goes before the first step changes nothing: it gets few of the kills.
    std::uniform_int_distribution<long> moment(times.firstStep.count() * 9 / 10,
                                               times.end.count() * 11 / 10);
    for (unsigned killed = 0; killed < kills;) {
      const bool wasKilled = Run(path, WatchedFileLayer::kNever, nanoseconds(moment(random_)));
      Judge(path, wasKilled, random_tally_);
      killed += wasKilled ? 1 : 0;
    }
  }

  [[nodiscard]] int Report() const {
    Print("at every step", exact_);
    Print("at random", random_tally_);
    return verdict_.Finish();
  }

 private:
  struct Times {
    nanoseconds firstStep, end;  // since the start
  };

  void Prepare(const WritePath& path, bool hasBackup) {
    before_ = installation_;
    if (!hasBackup) before_.erase(path.target + ".bak");
    after_ = Changed(path, before_);
  }

  // Whether the child was killed at that moment, or after that time, not done before it.
  bool Run(const WritePath& path, int killAt, nanoseconds killAfter = {}) {
    FillFolder(folder_.Path(), before_);
    new (&*progress_) Progress;
    WatchedFileLayer files(*progress_, killAt);
    Workplace place(folder_.Path(), files);
    const pid_t child = InChild([&] {
      KillMyselfAfter(killAfter);
      progress_->start = Now();
      const bool succeeded = path.run(place);
      progress_->end = Now();
      return succeeded;
    });
    const int status = StatusOf(child);
    const bool wasKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    verdict_.Check(wasKilled || status == 0, std::string(path.what) + " failed without a kill");
    return wasKilled;
  }

  // By a timer of the system: another process could not be sure to run in time. 0: never.
  static void KillMyselfAfter(nanoseconds time) {
    sigevent event = {};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGKILL;
    timer_t timer = {};
    itimerspec end = {};
    end.it_value.tv_sec = time.count() / 1'000'000'000;
    end.it_value.tv_nsec = time.count() % 1'000'000'000;
    if (::timer_create(CLOCK_MONOTONIC, &event, &timer) != 0 ||
        ::timer_settime(timer, 0, &end, nullptr) != 0) {
      std::perror("timer");
      ::_exit(EXIT_FAILURE);
    }
  }

  // The middle of some runs.
  Times Measure(const WritePath& path) {
    constexpr std::size_t kRuns = 7;
    std::vector<nanoseconds> firstStep, end;
    while (end.size() < kRuns) {
      Run(path, WatchedFileLayer::kNever);
      firstStep.emplace_back(progress_->firstStep - progress_->start);
      end.emplace_back(progress_->end - progress_->start);
    }
    std::sort(firstStep.begin(), firstStep.end());
    std::sort(end.begin(), end.end());
    return {firstStep[kRuns / 2], end[kRuns / 2]};
  }

  void Judge(const WritePath& path, bool wasKilled, Tally& tally) {
    const std::string what =
        std::string(path.what) + ", moment " + std::to_string(progress_->moments) + ": ";
    const Files left = ReadFolder(folder_.Path());
    CheckFiles(path, left, what);
    Count(path, wasKilled, left, tally);
    const Clock::time_point start = Clock::now();
    WaitingFileLayer impatient([] { return false; });
    Workplace next(folder_.Path(), impatient);
    CheckNext(path, next, left, what);
    tally.slowest = std::max(tally.slowest, nanoseconds(Clock::now() - start));
  }

  void CheckFiles(const WritePath& path, Files left, const std::string& what) {
    for (const std::string& name : {path.target, path.target + ".bak"}) {
      left.erase(name + ".new");
      left.erase(name + ".lock");
    }
    verdict_.Check(left == after_ || AreUntouched(path, before_, left),
                   what + "a file is neither the old nor the new one");
  }

  // The next change, of an editor that was started again, on what the killed one left.
  void CheckNext(const WritePath& path, Workplace& next, const Files& left,
                 const std::string& what) {
    Files expected;
    for (const auto& [name, bytes] : left) {
      if (!name.ends_with(".new") && !name.ends_with(".lock")) expected[name] = bytes;
    }
    bool succeeded = false;
    if (path.isTable) {
      const std::filesystem::path target = folder_.Path() / path.target;
      const std::string fresh = path.target + ".new";
      // Where there is no file yet, entries under that name may be all there is of it.
      if (!left.contains(path.target) && !Listed(folder_.Path() / fresh).names.empty()) {
        expected[path.target + ".bak"] = left.at(fresh);
      }
      succeeded = !next.library.SetActiveTable(target.string()) && next.Add("Next");
      std::string& bytes = expected[path.target];
      if (left.contains(path.target)) expected[path.target + ".bak"] = bytes;
      if (!bytes.empty() && !bytes.ends_with('\n')) bytes += "\r\n";
      bytes += CurveLine("Next", kGridTime);
    } else {
      succeeded = path.run(next);
      expected[path.target] = path.after(left);
    }
    verdict_.Check(succeeded, what + "the next change failed");
    verdict_.Check(ReadFolder(folder_.Path()) == expected, what + "the next change is not clean");
  }

  void Count(const WritePath& path, bool wasKilled, const Files& left, Tally& tally) const {
    if (!wasKilled) return void(++tally.after);
    ++tally.kills;
    if (progress_->end != 0) {
      ++tally.after;
    } else if (progress_->moments == 0) {
      ++tally.before;
    } else {
      ++tally.inside;
      ++tally.steps[(progress_->isDone ? "behind " : "in ") + std::string(progress_->step)];
    }
    const auto file = left.find(path.target);
    const bool isNew = file != left.end() && file->second == after_.at(path.target);
    ++(isNew ? tally.newFile : tally.oldFile);
    const auto remains = [&](std::string_view ending) {
      return std::any_of(left.begin(), left.end(),
                         [&](const auto& entry) { return entry.first.ends_with(ending); });
    };
    tally.fresh += remains(".new") ? 1 : 0;
    tally.lock += remains(".lock") ? 1 : 0;
  }

  static void Print(const char* what, const Tally& tally) {
    std::printf("%d kills %s: %d before the first step, %d inside, %d behind the last\n",
                tally.kills, what, tally.before, tally.inside, tally.after);
    std::printf("  left: %d old files, %d new; %d times a .new, %d times a .lock\n", tally.oldFile,
                tally.newFile, tally.fresh, tally.lock);
    std::printf("  inside:");
    for (const auto& [step, count] : tally.steps) std::printf(" %s %d,", step.c_str(), count);
    std::printf("\n  slowest start and change behind a kill: %.1f ms\n",
                Milliseconds(tally.slowest));
  }

  const Files installation_;
  Files before_, after_;
  ScratchFolder folder_;
  SharedMemory<Progress> progress_;
  std::mt19937 random_;
  Tally exact_, random_tally_;
  Verdict verdict_;
};

}  // namespace
}  // namespace zentab::test

int main(int count, char** arguments) {
  using namespace zentab::test;
  const unsigned kills = Argument(count, arguments, 1, 1000);
  const unsigned entries = Argument(count, arguments, 2, 3000);
  const unsigned seed = Argument(count, arguments, 3, 1);
  std::printf("%u kills at random in libraries of %u entries, seed %u\n", kills, entries, seed);
  KillHarness harness(entries, seed);
  for (const WritePath& path : WritePaths()) harness.KillAtEveryStep(path);
  const auto paths = static_cast<unsigned>(WritePaths().size());
  for (unsigned path = 0; path < paths; ++path) {
    harness.KillAtRandom(WritePaths()[path], kills / paths + (path < kills % paths ? 1 : 0));
  }
  return harness.Report();
}
