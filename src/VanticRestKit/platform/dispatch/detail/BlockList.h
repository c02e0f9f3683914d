#pragma once

/// \file
/// `BlockList`: blocks in the order in which they came.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <memory>
#include <utility>

namespace VanticRestKit::detail {

/// One block in a list. Made before the list's lock is taken and destroyed after it was given back.
struct BlockNode {
    explicit BlockNode(Block held) noexcept : block(std::move(held)) {}

    Block block;
    BlockNode* next = nullptr;
};

/// A first-in first-out list. Not locked. Its destructor takes the blocks one after another, however many.
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

    /// The oldest, or null where there is none.
    std::unique_ptr<BlockNode> pop() noexcept {
        std::unique_ptr<BlockNode> node(first_);
        if (node != nullptr) {
            first_ = node->next;
            if (first_ == nullptr) end_ = &first_;
        }
        return node;
    }

    /// Forgets all blocks and never destroys them: in a child process they are copies of what the parent runs.
    void abandon() noexcept {
        first_ = nullptr;
        end_ = &first_;
    }

    void swap(BlockList& other) noexcept {
        std::swap(first_, other.first_);
        std::swap(end_, other.end_);
        // The end of an empty list lies in the list itself.
        if (isEmpty()) end_ = &first_;
        if (other.isEmpty()) other.end_ = &other.first_;
    }

private:
    BlockNode* first_ = nullptr;
    BlockNode** end_ = &first_;
};

}  // namespace VanticRestKit::detail
