#include "batch/otherRanks.h"

#include <algorithm>
#include <cstring>
#include <thread>

#include "batch/jobWire.h"
#include "harness/scheduleFile.h"

namespace quintline::batch {
namespace {

std::string intBytes(int value) {
    return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}

}  // namespace

OtherRanks::OtherRanks(int size, std::chrono::seconds deadline)
    : ranks_(static_cast<std::size_t>(size)), deadline_(deadline) {}

void OtherRanks::sendToAll(Tag tag, const std::string& bytes) {
    std::string ignored;
    for (std::size_t r = 1; r < ranks_.size(); ++r)
        if (!ranks_[r].lost) outbox_.send(static_cast<int>(r), tag, bytes, ignored);
}

void OtherRanks::start(const Schedule& schedule, unsigned jobs) {
    std::string text = std::to_string(std::max(jobs, 1u)) + '\n';
    for (const Pairing& pairing : schedule) text += scheduleLine(pairing) + '\n';
    sendToAll(Tag::start, text);
}

void OtherRanks::lose(RemoteHost& host, int rank, const std::string& why) {
    Rank& lost = ranks_[static_cast<std::size_t>(rank)];
    if (lost.lost) return;
    lost.lost = true;
    anyLost_ = true;
    host.rankLost("rank " + std::to_string(rank) + " " + why + "; run stopped");
}

void OtherRanks::receive(RemoteHost& host, Message message) {
    Rank& from = ranks_[static_cast<std::size_t>(message.source)];
    from.heard = std::chrono::steady_clock::now();
    switch (message.tag) {
        case Tag::want: {
            int more = 0;
            std::memcpy(&more, message.bytes.data(), std::min(message.bytes.size(), sizeof more));
            from.wanted += more;
            break;
        }
        case Tag::games: {
            auto [index, games] = decodeGames(message.bytes);
            const auto job = from.out.find(index);
            if (job == from.out.end()) break;  // dropped when the run halted
            host.complete(index, job->second, std::move(games));
            from.out.erase(job);
            ++from.wanted;
            break;
        }
        case Tag::stopped:
            host.stopRequested();
            break;
        default:
            break;
    }
}

bool OtherRanks::pump(RemoteHost& host) {
    if (auto failed = outbox_.progress())
        lose(host, failed->first, "can not be reached (" + failed->second + ")");
    std::string fault;
    while (auto message = pollMessage(-1, fault)) receive(host, std::move(*message));
    if (!fault.empty()) host.rankLost("MPI failed (" + fault + "); run stopped");

    const auto now = std::chrono::steady_clock::now();
    bool busy = false;
    for (std::size_t r = 1; r < ranks_.size(); ++r) {
        Rank& rank = ranks_[r];
        if (rank.lost) continue;
        for (; rank.wanted > 0; --rank.wanted) {
            auto taken = host.takePlayable();
            if (!taken) break;
            if (rank.out.empty()) rank.heard = now;
            if (!outbox_.send(static_cast<int>(r), Tag::job, encodeJob(taken->first, taken->second),
                              fault)) {
                lose(host, static_cast<int>(r), "can not be reached (" + fault + ")");
                break;
            }
            rank.out.emplace(taken->first, std::move(taken->second));
        }
        if (!rank.out.empty() && now - rank.heard > deadline_)
            lose(host, static_cast<int>(r),
                 "has not answered for " + std::to_string(deadline_.count()) + " seconds");
        busy = busy || (!rank.lost && !rank.out.empty());
    }
    return busy;
}

void OtherRanks::halt() {
    sendToAll(Tag::halt, {});
    for (Rank& rank : ranks_) rank.out.clear();
}

bool OtherRanks::finish(int status) {
    sendToAll(Tag::finish, intBytes(status));
    // Until MPI has the messages out, or a rank turns out to be gone.
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(2);
    while (!outbox_.idle() && std::chrono::steady_clock::now() < until) {
        if (outbox_.progress()) anyLost_ = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return !anyLost_ && outbox_.idle();
}

}  // namespace quintline::batch
