#pragma once

#include <QStringList>

class QByteArray;

/// What Qt's reader of JSON keeps to itself. For any thread.
namespace JsonKeys {

/// The first key that an object has twice, of which the reader takes one: the way to it and the key itself, as
/// "steps", 2, "at", with a number from 1 for an entry of a list; empty when there is none. bytes must be good JSON.
QStringList FindTwice(const QByteArray& bytes);

} // namespace JsonKeys
