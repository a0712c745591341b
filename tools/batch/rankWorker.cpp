#include "batch/rankWorker.h"

#include <chrono>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <memory>
#include <mutex>
#include <sstream>
#include <thread>

#include "batch/batchRun.h"
#include "batch/jobWire.h"
#include "batch/mpiLink.h"
#include "game/game.h"
#include "game/silentToolkit.h"
#include "harness/scheduleFile.h"

namespace quintline::batch {
namespace {

// The threads of one run and the jobs between them and the MPI thread. Held
// by the threads too: once the run halts they are let go and finish their
// game unwatched.
class Players : public std::enable_shared_from_this<Players> {
  public:
    Players(Schedule schedule, const SearchSet& searches)
        : schedule_(std::move(schedule)), searches_(searches) {}

    void startThreads(unsigned count) {
        for (unsigned i = 0; i < count; ++i)
            std::thread([self = shared_from_this()] { self->play(); }).detach();
    }

    void give(std::pair<std::size_t, BatchJob> job) {
        std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
        wake_.notify_one();
    }

    std::deque<std::string> finished() {
        std::lock_guard lock(mutex_);
        return std::exchange(finished_, {});
    }

    void halt() {
        std::lock_guard lock(mutex_);
        halted_ = true;
        wake_.notify_all();
    }

  private:
    void play() {
        SilentToolkit toolkit;
        auto game = std::make_unique<Game>(toolkit, searches_);
        game->startSession();
        game->newGame();
        for (;;) {
            std::unique_lock lock(mutex_);
            wake_.wait(lock, [this] { return halted_ || !jobs_.empty(); });
            if (halted_) return;
            auto [index, job] = std::move(jobs_.front());
            jobs_.pop_front();
            lock.unlock();
            auto games = playJob(*game, schedule_, job, [this] { return halted_.load(); });
            if (!games) return;
            std::string bytes = encodeGames(index, *games);
            lock.lock();
            finished_.push_back(std::move(bytes));
        }
    }

    const Schedule schedule_;
    const SearchSet searches_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<std::pair<std::size_t, BatchJob>> jobs_;
    std::deque<std::string> finished_;
    std::atomic<bool> halted_{false};
};

std::string intBytes(int value) {
    return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}

int intOf(const std::string& bytes) {
    int value = 0;
    std::memcpy(&value, bytes.data(), std::min(bytes.size(), sizeof value));
    return value;
}

// "threads\n" and the schedule's lines, as OtherRanks::start sends them.
std::shared_ptr<Players> startRun(const std::string& text, const SearchSet& searches,
                                  unsigned& threads) {
    std::istringstream in(text);
    in >> threads;
    ScheduleRead read = parseSchedule(in, "schedule");
    if (!read.schedule) return nullptr;
    auto players = std::make_shared<Players>(std::move(*read.schedule), searches);
    players->startThreads(threads);
    return players;
}

}  // namespace

int serveRankZero(const SearchSet& searches, const std::atomic<bool>& stop) {
    using namespace std::chrono_literals;
    Outbox outbox;
    std::string fault;
    std::shared_ptr<Players> players;
    bool toldStop = false;
    auto lastSent = std::chrono::steady_clock::now();
    for (;;) {
        std::optional<Message> message = pollMessage(0, fault);
        if (message) switch (message->tag) {
                case Tag::start: {
                    unsigned threads = 1;
                    players = startRun(message->bytes, searches, threads);
                    if (players)
                        outbox.send(0, Tag::want, intBytes(static_cast<int>(threads)), fault);
                    break;
                }
                case Tag::job:
                    if (players) players->give(decodeJob(message->bytes));
                    break;
                case Tag::halt:
                    if (players) players->halt();
                    players.reset();
                    break;
                case Tag::finish:
                    return intOf(message->bytes);
                default:
                    break;
            }
        const auto now = std::chrono::steady_clock::now();
        if (players) {
            for (std::string& games : players->finished()) {
                outbox.send(0, Tag::games, std::move(games), fault);
                lastSent = now;
            }
            if (now - lastSent > 2s) {
                outbox.send(0, Tag::alive, {}, fault);
                lastSent = now;
            }
        }
        if (stop.load() && !toldStop) toldStop = outbox.send(0, Tag::stopped, {}, fault);
        outbox.progress();
        if (!message) std::this_thread::sleep_for(5ms);
    }
}

}  // namespace quintline::batch
