#pragma once

#include <QSaveFile>
#include <QString>

struct archive;

/// A .tar.gz that is being written: it takes its place when it is complete. One thread.
class CArchive
{
public:
    explicit CArchive(const QString& strFile);
    ~CArchive();
    Q_DISABLE_COPY(CArchive)

    /// Adds a file of that name. After a failure nothing more is added.
    void Add(const QString& strName, const QByteArray& bytes);

    /// Completes it. Empty, or one line with the reason why there is none.
    QString Close();

private:
    void Check(int nResult);

    QSaveFile file;
    archive* const pArchive;
    QString strError;
};
