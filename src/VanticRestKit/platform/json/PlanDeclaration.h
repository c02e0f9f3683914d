#pragma once

/// \file
/// The minimum that an entity's header needs to declare the entity's mapping table.
///
/// \code
/// template <>
/// const VanticRestKit::TypePlan& VanticRestKit::planOf<Song>();
/// \endcode
/// The source defines it with the functions of `Table.h`.

namespace VanticRestKit {

namespace mapping {

/// How values of one type are decoded and printed. Made from a mapping table on first use and never destroyed. Its
/// contents are private to the library.
struct TypePlan;

}  // namespace mapping

using mapping::TypePlan;

/// The plan of a type. Entities specialise it with their mapping table. It is deleted for types without a table;
/// `PlanOf.h` adds the types that need none.
template <class T>
const TypePlan& planOf() = delete;

}  // namespace VanticRestKit
