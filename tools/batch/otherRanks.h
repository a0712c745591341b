#pragma once
// Rank 0's side of an MPI run: the other ranks as remote players. Each rank
// asks for as many jobs as it runs threads and for one more with each job's
// games; a rank that can't be reached, or that holds jobs and has been silent
// past the deadline (it says it is alive every second or two), is lost.

#include <chrono>
#include <cstddef>
#include <map>
#include <vector>

#include "batch/batchRun.h"
#include "batch/mpiLink.h"

namespace quintline::batch {

class OtherRanks final : public RemotePlayers {
  public:
    explicit OtherRanks(int size, std::chrono::seconds deadline = std::chrono::seconds(30));

    void start(const Schedule& schedule, unsigned jobs) override;
    bool pump(RemoteHost& host) override;
    void halt() override;

    // Tells every rank still there to end with `status`. False when some rank
    // was lost.
    bool finish(int status);

  private:
    struct Rank {
        int wanted = 0;
        std::map<std::size_t, BatchJob> out;  // handed out, by place in run order
        std::chrono::steady_clock::time_point heard;
        bool lost = false;
    };

    void sendToAll(Tag tag, const std::string& bytes);
    void lose(RemoteHost& host, int rank, const std::string& why);
    void receive(RemoteHost& host, Message message);

    std::vector<Rank> ranks_;  // by rank; 0 is this one
    std::chrono::seconds deadline_;
    Outbox outbox_;
    bool anyLost_ = false;
};

}  // namespace quintline::batch
