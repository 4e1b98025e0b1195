#pragma once

#include <QByteArray>

#include <initializer_list>

// A byte string written out as numbers, for tests that build file and pixel data.
inline QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray result;
    for (int value : values)
        result += char(value);
    return result;
}
