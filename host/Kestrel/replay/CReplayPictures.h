#pragma once

#include <QDateTime>
#include <QImage>
#include <QObject>

#include <vector>

struct SKestrelOptions;
class CReplaySource;
class QWidget;

/// The pictures of a replay that were asked for, at times of the recording. GUI thread.
class CReplayPictures : public QObject
{
    Q_OBJECT

public:
    /// All must outlive it.
    CReplayPictures(QWidget& windowIn, const SKestrelOptions& options, const CReplaySource& source);

    /// One line, when a time is not in the recording; else empty.
    QString GetFault() const;

    /// Whether one is due before what happened at that time.
    bool IsDue(const QDateTime& time) const;

    /// Whether one is due at the end.
    bool IsDueAtEnd() const;

    /// Takes the next one as soon as the window has come to rest, called again and again until then. False: not yet.
    bool Take();

    /// The replay has ended: Failed for each one that was asked for and not taken.
    void ReportMissing();

    /// Takes the one that is due at the end now, if there is one.
    void TakeLast();

signals:
    void Taken(const QString& strFile);
    void Failed(const QString& strReason);

private:
    /// A picture to take.
    struct SPicture
    {
        QDateTime time; ///< invalid: at the end
        QString strFile;
    };

    void Write(const QImage& image);
    void AddAll(const SKestrelOptions& options, const CReplaySource& source);
    void Add(const QString& strAt, const SKestrelOptions& options, const CReplaySource& source);

    QWidget& window;
    std::vector<SPicture> vecPicture; ///< by their time
    std::size_t nDone = 0;
    QImage imageLast;   ///< what the window looked like when it was asked last
    qint64 nLastMs = 0; ///< when that was, by the steady clock
    QString strFault;
};
