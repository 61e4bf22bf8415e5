#pragma once

#include <QtTest>
#include <tuple>
#include <utility>

/// Adds rows to a test's table, with their fields in the order of its columns.
template <class... Types> struct RowAdder {
    void operator()(const char *name, const Types &...fields) const { (QTest::newRow(name) << ... << fields); }
};

/// Adds the columns of a test's table, with their types and names in order, and gives what adds its rows.
template <class... Types> RowAdder<Types...> Columns(const char *const (&names)[sizeof...(Types)])
{
    const char *const *next = names;
    (QTest::addColumn<Types>(*next++), ...);
    return {};
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

/// Adds a row to a table whose columns are told one by one.
template <class... Fields> void AddRow(const char *name, const Fields &...fields)
{
    (QTest::newRow(name) << ... << fields);
}
