#pragma once

#include <QString>

#include <exception>

/// Calls on a control library that may throw, for a caller that must not. Any thread.
namespace LibraryCall {

/// Carries out body. A null text when it has come back, else what it has thrown, in words.
template <typename Body> QString Try(const Body& body)
{
    try {
        body();
    } catch (const std::exception& exception) {
        return QStringLiteral("an exception: ") + QString::fromLocal8Bit(exception.what());
    } catch (...) {
        return QStringLiteral("something that is no std::exception");
    }
    return {};
}

} // namespace LibraryCall
