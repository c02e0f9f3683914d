#pragma once

/// \file
/// `BlockList`: a first-in first-out list of blocks.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <memory>
#include <utility>

namespace VanticRestKit::detail {

/// One block of a list. Allocated before the list's lock is taken and destroyed after it is released.
struct BlockNode {
    explicit BlockNode(Block held) noexcept : block(std::move(held)) {}

    Block block;
    BlockNode* next = nullptr;
};

/// Not thread-safe. The destructor destroys the blocks in order, without recursion.
class BlockList {
public:
    BlockList() = default;
    BlockList(const BlockList&) = delete;
    BlockList& operator=(const BlockList&) = delete;
    ~BlockList() {
        while (pop() != nullptr) {
        }
    }

    bool isEmpty() const noexcept { return first_ == nullptr; }

    void push(std::unique_ptr<BlockNode> node) noexcept {
        *end_ = node.release();
        end_ = &(*end_)->next;
    }

    /// Removes the oldest block; null if there is none.
    std::unique_ptr<BlockNode> pop() noexcept {
        std::unique_ptr<BlockNode> node(first_);
        if (node != nullptr) {
            first_ = node->next;
            if (first_ == nullptr) end_ = &first_;
        }
        return node;
    }

    /// Drops all blocks without destroying them: in a child process they are copies of blocks that the parent runs.
    void abandon() noexcept {
        first_ = nullptr;
        end_ = &first_;
    }

    void swap(BlockList& other) noexcept {
        std::swap(first_, other.first_);
        std::swap(end_, other.end_);
        // The end pointer of an empty list points into the list itself.
        if (isEmpty()) end_ = &first_;
        if (other.isEmpty()) other.end_ = &other.first_;
    }

private:
    BlockNode* first_ = nullptr;
    BlockNode** end_ = &first_;
};

}  // namespace VanticRestKit::detail
