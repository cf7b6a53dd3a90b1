// Data-driven cases: a table's typed columns named in one call, and the current row read back in one.
#pragma once

#include <QTest>
#include <concepts>
#include <tuple>

template <typename... T> void columns(std::initializer_list<const char *> names)
{
    auto name = names.begin();
    (QTest::addColumn<T>(*name++), ...);
}

// The current row's values of the named columns, as QFETCH reads them.
template <typename... T> std::tuple<T...> fetch(std::same_as<const char *> auto... names)
{
    return { *static_cast<T *>(QTest::qData(names, qMetaTypeId<T>()))... };
}
