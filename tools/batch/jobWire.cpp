#include "batch/jobWire.h"

#include <cassert>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace quintline::batch {
namespace {

class Writer {
  public:
    template <typename T>
    void put(const T& value) {
        static_assert(std::is_trivially_copyable_v<T>);
        bytes_.append(reinterpret_cast<const char*>(&value), sizeof value);
    }
    void put(const std::string& text) {
        put(text.size());
        bytes_ += text;
    }
    template <typename T>
    void put(const std::vector<T>& items) {
        put(items.size());
        for (const T& item : items) put(item);
    }
    std::string take() { return std::move(bytes_); }

  private:
    std::string bytes_;
};

class Reader {
  public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    template <typename T>
    void get(T& value) {
        static_assert(std::is_trivially_copyable_v<T>);
        assert(bytes_.size() >= sizeof value);
        std::memcpy(&value, bytes_.data(), sizeof value);
        bytes_.remove_prefix(sizeof value);
    }
    void get(std::string& text) {
        std::size_t size = 0;
        get(size);
        text.assign(bytes_.substr(0, size));
        bytes_.remove_prefix(size);
    }
    template <typename T>
    void get(std::vector<T>& items) {
        std::size_t size = 0;
        get(size);
        items.resize(size);
        for (T& item : items) get(item);
    }
    bool done() const { return bytes_.empty(); }

  private:
    std::string_view bytes_;
};

}  // namespace

std::string encodeJob(std::size_t index, const BatchJob& job) {
    Writer out;
    out.put(index);
    out.put(job.number);
    out.put(job.boardFilePath);
    if (const auto* opening = std::get_if<Opening>(&job.start)) {
        out.put(true);
        out.put(*opening);
    } else {
        const BoardFile& file = std::get<BoardFile>(job.start);
        out.put(false);
        out.put(file.moves);
        out.put(file.userColour);
    }
    return out.take();
}

std::pair<std::size_t, BatchJob> decodeJob(std::string_view bytes) {
    Reader in(bytes);
    std::pair<std::size_t, BatchJob> result;
    auto& [index, job] = result;
    in.get(index);
    in.get(job.number);
    in.get(job.boardFilePath);
    bool tournament = true;
    in.get(tournament);
    if (tournament) {
        Opening opening;
        in.get(opening);
        job.start = opening;
    } else {
        BoardFile file;
        in.get(file.moves);
        in.get(file.userColour);
        job.start = std::move(file);
    }
    assert(in.done());
    return result;
}

std::string encodeGames(std::size_t index, const std::vector<PlayedGame>& games) {
    Writer out;
    out.put(index);
    out.put(games.size());
    for (const PlayedGame& game : games) {
        out.put(game.group);
        out.put(game.result);
        out.put(game.opening);
        out.put(game.record.moves);
        out.put(game.record.userColour);
    }
    return out.take();
}

std::pair<std::size_t, std::vector<PlayedGame>> decodeGames(std::string_view bytes) {
    Reader in(bytes);
    std::pair<std::size_t, std::vector<PlayedGame>> result;
    auto& [index, games] = result;
    in.get(index);
    std::size_t count = 0;
    in.get(count);
    games.resize(count);
    for (PlayedGame& game : games) {
        in.get(game.group);
        in.get(game.result);
        in.get(game.opening);
        in.get(game.record.moves);
        in.get(game.record.userColour);
    }
    assert(in.done());
    return result;
}

}  // namespace quintline::batch
