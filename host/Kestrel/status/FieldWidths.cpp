#include "Kestrel/status/FieldWidths.h"

#include <numeric>

namespace {

// The room that is left; below zero where even the kept ones have too little.
int GiveWay(QVector<int>& listWidth, const QVector<FieldWidths::SField>& listField, int nSpare)
{
    for (int n = listField.size() - 1; n >= 0 && nSpare < 0; --n) {
        if (!listField.at(n).bKept) {
            nSpare += listWidth.at(n);
            listWidth[n] = 0;
        }
    }
    return nSpare;
}

void HandOut(QVector<int>& listWidth, const QVector<FieldWidths::SField>& listField, int nSpare)
{
    for (int n = 0; n < listField.size() && nSpare > 0; ++n) {
        if (listWidth.at(n) > 0) {
            const int nGain = qMin(nSpare, listField.at(n).nWhole - listWidth.at(n));
            listWidth[n] += nGain;
            nSpare -= nGain;
        }
    }
}

} // namespace

QVector<int> FieldWidths::Share(const QVector<SField>& listField, int nRoom, int nMore)
{
    QVector<int> listWidth;
    for (const SField& field : listField) {
        listWidth.append(field.nLeast);
    }
    const int nSpare = nRoom - std::accumulate(listWidth.cbegin(), listWidth.cend(), 0);
    HandOut(listWidth, listField, nSpare < 0 ? GiveWay(listWidth, listField, nSpare - nMore) : nSpare);
    return listWidth;
}
