#pragma once
// The messages between the ranks of an MPI run of quintline-batch. Rank 0 runs
// the command as on one machine and alone reads and writes files; the other
// ranks play the jobs it hands out. Only the thread that started MPI calls it.

#include <mpi.h>

#include <list>
#include <optional>
#include <string>
#include <utility>

namespace quintline::batch {

enum class Tag : int {
    start = 1,  // 0 to a rank: the threads to run and the schedule's lines
    job,        // 0 to a rank: one job (jobWire)
    halt,       // 0 to a rank: the run is over; drop whatever is under way
    finish,     // 0 to a rank: end the process with the status given
    want,       // a rank to 0: that many more jobs, please
    games,      // a rank to 0: a job's played games (jobWire); one more job, please
    alive,      // a rank to 0: still playing
    stopped,    // a rank to 0: a stop signal reached me
};

struct Message {
    int source = 0;
    Tag tag = Tag::start;
    std::string bytes;
};

// The process's place in an MPI run. MPI is started only when an MPI launcher
// (mpirun, or srun under Slurm) started the process; otherwise this is rank 0
// of 1 and nothing else here may be used.
class MpiSession {
  public:
    MpiSession(int& argc, char**& argv);
    MpiSession(const MpiSession&) = delete;
    MpiSession& operator=(const MpiSession&) = delete;

    int rank() const { return rank_; }
    int size() const { return size_; }

    // Ends MPI (unless some rank stopped answering, when that could wait for
    // ever) and, in a run of several ranks, the process, without waiting for
    // threads still playing dropped games. Returns `status` otherwise.
    int end(int status, bool everyoneAnswered = true);

  private:
    bool started_ = false;
    int rank_ = 0;
    int size_ = 1;
};

// The next message from `source` (any rank when negative), if one is
// waiting. `fault` gets MPI's reason when receiving failed.
std::optional<Message> pollMessage(int source, std::string& fault);

// Messages sent without blocking, each kept until MPI is done with it.
class Outbox {
  public:
    Outbox() = default;
    Outbox(const Outbox&) = delete;
    Outbox& operator=(const Outbox&) = delete;

    // False, with MPI's reason in `fault`, when the message can't be sent.
    bool send(int destination, Tag tag, std::string bytes, std::string& fault);
    // Lets go of the messages sent; the rank a failed one was for, with the reason.
    std::optional<std::pair<int, std::string>> progress();
    bool idle() const { return pending_.empty(); }

  private:
    struct Pending {
        int destination = 0;
        std::string bytes;  // stays put until MPI is done with it
        MPI_Request request = MPI_REQUEST_NULL;
    };
    std::list<Pending> pending_;
};

}  // namespace quintline::batch
