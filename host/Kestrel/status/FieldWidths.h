#pragma once

#include <QVector>

/// How fields beside each other share a room that may be too small for all of them.
namespace FieldWidths {

/// One field, in pixels.
struct SField
{
    int nWhole = 0;     ///< with all of its text
    int nLeast = 0;     ///< with the beginning of it; at most nWhole
    bool bKept = false; ///< never gives way
};

/// The width of each field; 0 for one that gives way. The fields come in their order of importance: from the last one on
/// they are elided, and only where that is not enough they give way, which takes nMore pixels for the mark that says so.
/// What is over is left over. Wider than nRoom only when the kept ones are.
QVector<int> Share(const QVector<SField>& listField, int nRoom, int nMore);

} // namespace FieldWidths

Q_DECLARE_TYPEINFO(FieldWidths::SField, Q_PRIMITIVE_TYPE);
