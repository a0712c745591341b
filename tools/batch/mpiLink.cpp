#include "batch/mpiLink.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace quintline::batch {
namespace {

bool launchedByMpi() {
    // Set by Open MPI's mpirun, by PMIx launchers (srun --mpi=pmix) and by PMI-2 ones.
    for (const char* name : {"OMPI_COMM_WORLD_SIZE", "PMIX_RANK", "PMI_RANK"})
        if (std::getenv(name)) return true;
    return false;
}

std::string reason(int code) {
    char text[MPI_MAX_ERROR_STRING];
    int length = 0;
    MPI_Error_string(code, text, &length);
    return std::string(text, static_cast<std::size_t>(length));
}

}  // namespace

MpiSession::MpiSession(int& argc, char**& argv) {
    if (!launchedByMpi()) return;
    int provided = 0;
    MPI_Init_thread(&argc, &argv, MPI_THREAD_FUNNELED, &provided);
    started_ = true;
    // A rank that dies must not end rank 0 from inside MPI: it keeps its
    // whole lines and says which rank went.
    MPI_Comm_set_errhandler(MPI_COMM_WORLD, MPI_ERRORS_RETURN);
    MPI_Comm_rank(MPI_COMM_WORLD, &rank_);
    MPI_Comm_size(MPI_COMM_WORLD, &size_);
}

int MpiSession::end(int status, bool everyoneAnswered) {
    if (!started_) return status;
    if (everyoneAnswered) MPI_Finalize();
    if (size_ == 1) return status;
    std::cout.flush();
    std::cerr.flush();
    std::fflush(nullptr);
    std::_Exit(status);
}

std::optional<Message> pollMessage(int source, std::string& fault) {
    int waiting = 0;
    MPI_Status status;
    int code = MPI_Iprobe(source < 0 ? MPI_ANY_SOURCE : source, MPI_ANY_TAG, MPI_COMM_WORLD,
                          &waiting, &status);
    if (code == MPI_SUCCESS && !waiting) return std::nullopt;
    int size = 0;
    if (code == MPI_SUCCESS) code = MPI_Get_count(&status, MPI_BYTE, &size);
    Message message{status.MPI_SOURCE, static_cast<Tag>(status.MPI_TAG),
                    std::string(static_cast<std::size_t>(size), '\0')};
    if (code == MPI_SUCCESS)
        code = MPI_Recv(message.bytes.data(), size, MPI_BYTE, status.MPI_SOURCE, status.MPI_TAG,
                        MPI_COMM_WORLD, MPI_STATUS_IGNORE);
    if (code == MPI_SUCCESS) return message;
    fault = reason(code);
    return std::nullopt;
}

bool Outbox::send(int destination, Tag tag, std::string bytes, std::string& fault) {
    Pending& sent = pending_.emplace_back(Pending{destination, std::move(bytes)});
    const int code = MPI_Isend(sent.bytes.data(), static_cast<int>(sent.bytes.size()), MPI_BYTE,
                               destination, static_cast<int>(tag), MPI_COMM_WORLD, &sent.request);
    if (code == MPI_SUCCESS) return true;
    pending_.pop_back();
    fault = reason(code);
    return false;
}

std::optional<std::pair<int, std::string>> Outbox::progress() {
    for (auto it = pending_.begin(); it != pending_.end();) {
        int done = 0;
        const int code = MPI_Test(&it->request, &done, MPI_STATUS_IGNORE);
        if (code != MPI_SUCCESS) {
            const int destination = it->destination;
            pending_.erase(it);
            return std::pair{destination, reason(code)};
        }
        it = done ? pending_.erase(it) : std::next(it);
    }
    return std::nullopt;
}

}  // namespace quintline::batch
