#pragma once

// The diagnosing engine: visits the rows of a table in decode order, using an index of the document, so that the
// reported error is the first in decode order, regardless of the order of the document.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/detail/DocumentIndex.h>
#include <VanticRestKit/platform/json/detail/FailedCandidates.h>
#include <VanticRestKit/platform/json/detail/TypePlan.h>
#include <VanticRestKit/platform/json/detail/ValueReader.h>
#include <VanticRestKit/platform/json/Diagnosis.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::json {

using namespace mapping;  // the plans

class DiagnosingEngine {
public:
    enum class Report { error, everything };

    /// `memoryLimit` is the memory budget in bytes.
    DiagnosingEngine(const Data& document, Report report, std::uint64_t memoryLimit);

    /// Decodes into `value`, which must be newly made.
    Diagnosis run(const TypePlan& plan, void* value);

    /// The memory that the value holds, as counted by the budget.
    std::uint64_t memoryUsed() const noexcept { return memory_.used(); }

private:
    /// Why a value failed to decode.
    struct Failing {
        DecodingError::Kind kind{};
        CodingPath path;
        Presence presence = Presence::required;
        std::string expected;
        std::string found;
        std::optional<Error> mismatch;  // if the object names a different entity
    };

    /// A field that was reset to its default, and the index of the fault that reported it.
    struct Reset {
        std::size_t fault;
        const FieldPlan* field;
        const void* place;
    };

    bool root(const TypePlan& type, void* target);
    bool value(const TypePlan& type, void* target, Place at, bool isNamed, Presence presence);
    bool wrapped(const TypePlan& type, void* target, Place at, bool isNamed, Presence presence);
    bool leafValue(const TypePlan& type, void* target, Place at, bool isNamed, Presence presence);
    bool dictionary(Dictionary& values, Place at, Presence presence);
    bool entity(const ObjectPlan& plan, void* target, Place at, Presence presence);
    void derive(const ObjectPlan& plan, void* target, std::size_t resetsBefore);
    bool list(const ListPlan& plan, void* target, Place at);
    bool element(const ListPlan& plan, void* target, Place at, std::size_t bytesRead);
    void* appended(const ListPlan& plan, void* list, Place at, std::size_t bytesRead);
    bool choiceInto(const ChoicePlan& plan, void* fieldOrList, Place at);
    bool choice(const ChoicePlan& plan, Place at, const Candidate*& chosen, void*& made);
    bool failChoice(const ChoicePlan& plan, Place at);
    bool candidate(const ChoicePlan& plan, std::size_t place, Place at, void*& made);

    bool open(const ObjectPlan& plan, Place at, Presence presence, std::vector<Place>& found);
    bool rows(const ObjectPlan& plan, const ObjectPlan& entity, void* target,
              const std::vector<Place>& found);
    bool row(const FieldPlan& field, const ObjectPlan& entity, void* target, Place at);
    bool innerRow(const FieldPlan& field, const ObjectPlan& entity, void* target, Place at);
    bool valueRow(const FieldPlan& field, void* target, Place at);
    bool valueInto(const FieldPlan& field, void* place, Place at);
    bool entityCheck(const ObjectPlan& entity, Place at);

    bool fail(DecodingError::Kind kind, std::string_view expected, std::string_view found, Presence presence);
    bool failUnfit(const TypePlan& type, Place at, bool isNamed, Presence presence);
    void enter(std::string_view key);
    void ignoreFieldFault(const FieldPlan& field, void* place);
    void ignoreFault(std::string_view became);
    void report(std::string became, Presence presence);
    Error error() const;

    Data document_;
    DocumentIndex index_;
    Report report_;
    MemoryBudget memory_;
    FailedCandidates failedCandidates_;
    CodingPath path_;
    Failing failing_;  // the latest failure; meaningful only if it was not ignored
    std::vector<Fault> faults_;
    std::vector<Reset> resets_;  // of the entities that are being decoded
};

}  // namespace VanticRestKit::json
