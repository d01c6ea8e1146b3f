#pragma once

#include <QDockWidget>
#include <QTimer>

class CCallLog;
class CJournalFilter;
class CJournalModel;
class CTheme;
class QCheckBox;
class QLabel;
class QLineEdit;
class QToolButton;
class QTreeView;

/// Shows the journal of control calls and messages as they happen.
///
/// It reads the journal in batches, a few times a second and only when there is something, so that a
/// storm of messages costs one insertion per batch.
class CJournalDock : public QDockWidget
{
    Q_OBJECT

public:
    /// journalIn must outlive the dock; theme must, or change no more.
    CJournalDock(CCallLog& journalIn, const CTheme& theme, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    static QMap<int, QColor> GetKindColours(const CTheme& theme);
    QWidget* MakeBar();
    void MakeView();
    void SetConnection();
    void UpdateColours(const CTheme& theme);
    void UpdateText();
    /// No title of a column is cut off; its font is known only when it is shown.
    void FitColumns();
    void ReadSoon();
    void Read();

    CCallLog& journal;
    CJournalModel* pModel;
    CJournalFilter* pFilter;
    QTreeView* pView;
    QLabel* pTitle;
    QLineEdit* pSearch;
    QCheckBox* pReads;
    QToolButton* pClear;
    QToolButton* pClose;
    QTimer timer;
    quint64 nRead = 0; ///< number of the last record that was read
};
