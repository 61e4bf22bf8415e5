#pragma once

#include <QtTest>
#include <tuple>
#include <utility>

/// Adds the columns of a test's table, with their types and names in order.
template <class... Types> void Columns(const char *const (&names)[sizeof...(Types)])
{
    const char *const *next = names;
    (QTest::addColumn<Types>(*next++), ...);
}

template <class... Types, size_t... places>
std::tuple<Types...> FetchAt(const char *const *names, std::index_sequence<places...>)
{
    return {*static_cast<Types *>(QTest::qData(names[places], qMetaTypeId<Types>()))...};
}

/// The fields of the row that a test runs with, by the names of their columns.
template <class... Types> std::tuple<Types...> Fetch(const char *const (&names)[sizeof...(Types)])
{
    return FetchAt<Types...>(names, std::index_sequence_for<Types...>());
}

/// Adds a row with its fields in the order of the columns.
template <class... Fields> void AddRow(const char *name, const Fields &...fields)
{
    (QTest::newRow(name) << ... << fields);
}
