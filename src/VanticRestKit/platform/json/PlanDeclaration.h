#pragma once

/// \file
/// What the header of an entity needs to declare the entity's mapping table, and nothing more.
///
/// \code
/// template <>
/// const VanticRestKit::TypePlan& VanticRestKit::planOf<Song>();
/// \endcode
/// The source defines it with the words of `Table.h`.

namespace VanticRestKit {

namespace mapping {

/// How values of one type are decoded and printed. Made from a mapping table on first use and never destroyed; what
/// is in it is private to the library.
struct TypePlan;

}  // namespace mapping

using mapping::TypePlan;

/// The plan of a type. Entities specialise it with their mapping table. Of a type without a table it is deleted;
/// `PlanOf.h` adds the types that need none.
template <class T>
const TypePlan& planOf() = delete;

}  // namespace VanticRestKit
