#pragma once
// Items that finish in any order on several threads but must be written in
// order: each is handed to the sink as soon as it and every item before it
// are complete, so the output is always a whole prefix of the run.

#include <cstddef>
#include <functional>
#include <limits>
#include <map>
#include <mutex>
#include <utility>

namespace quintline::batch {

// What the sink made of an item.
enum class Handed {
    carryOn,
    last,     // taken, and nothing after it is to be handed on
    refused,  // not taken, and nothing after it is to be handed on
};

template <typename Item>
class OrderedWriter {
  public:
    // Sees the items in index order, one at a time, under the writer's lock.
    using Sink = std::function<Handed(std::size_t index, Item& item)>;

    explicit OrderedWriter(Sink sink) : sink_(std::move(sink)) {}

    // Items from `index` on will never be handed on, complete or not.
    // Used when an item is abandoned: later ones would leave a gap.
    void cut(std::size_t index) {
        std::lock_guard lock(mutex_);
        if (index < end_) end_ = index;
        pending_.erase(pending_.lower_bound(end_), pending_.end());
    }

    // Thread-safe. Hands on this item and those waiting behind it if every
    // earlier item has been handed on; otherwise keeps it until then.
    void complete(std::size_t index, Item item) {
        std::lock_guard lock(mutex_);
        if (index < next_ || index >= end_) return;
        pending_.insert_or_assign(index, std::move(item));
        for (auto it = pending_.find(next_); it != pending_.end(); it = pending_.find(next_)) {
            const Handed handed = sink_(next_, it->second);
            pending_.erase(it);
            if (handed != Handed::refused) ++next_;
            if (handed != Handed::carryOn) {
                end_ = next_;
                pending_.clear();
                return;
            }
        }
    }

    // Items handed on so far; they are items 0 to handedOn() - 1.
    std::size_t handedOn() const {
        std::lock_guard lock(mutex_);
        return next_;
    }

    // Completed items held back behind an unfinished one.
    std::size_t waiting() const {
        std::lock_guard lock(mutex_);
        return pending_.size();
    }

  private:
    mutable std::mutex mutex_;
    Sink sink_;
    std::map<std::size_t, Item> pending_;
    std::size_t next_ = 0;
    std::size_t end_ = std::numeric_limits<std::size_t>::max();
};

}  // namespace quintline::batch
