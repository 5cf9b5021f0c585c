#pragma once

#include <cstdint>
#include <string_view>

namespace prot {

/// The reserved words of T-SQL. Those that the translation understands have a name; `reserved` are all
/// others, which can be names only in brackets. A trailing underscore keeps clear of C++'s own words.
enum class Keyword : std::uint8_t {
    none,
    all,
    and_,
    as,
    asc,
    between,
    by,
    cross,
    delete_,
    desc,
    distinct,
    drop,
    except,
    exists,
    from,
    group,
    having,
    if_,
    in,
    inner,
    intersect,
    into,
    is,
    join,
    left,
    like,
    not_,
    null,
    on,
    or_,
    order,
    outer,
    select,
    table,
    top,
    union_,
    where,
    reserved
};

/// The keyword that `word` is, letter case ignored; `none` for an ordinary name.
Keyword keyword_of(std::string_view word);

}  // namespace prot
