#include "Builders.h"
#include "CMapTranslator.h"
#include "CNameRegistry.h"
#include "TestMain.h"
#include "tree/RowSpeech.h"

#include <QTranslator>

Q_DECLARE_METATYPE(SProcessorNode)
Q_DECLARE_METATYPE(SProcessorGroupNode)

namespace {

CProcessorBuilder Wall()
{
    return Processor("Wall left").Ip("192.168.1.11").Project("Aurora").Type(12, "KX-4");
}

/// Translates each text to the number that it is asked for with.
class CNumberTranslator : public QTranslator
{
public:
    CNumberTranslator()
    {
        QCoreApplication::installTranslator(this);
    }
    ~CNumberTranslator() override
    {
        QCoreApplication::removeTranslator(this);
    }
    QString translate(const char*, const char*, const char*, int n) const override
    {
        return n < 0 ? QString() : QStringLiteral("%1 in form ") + QString::number(n);
    }
    bool isEmpty() const override
    {
        return false;
    }
};

void AddProcessorColumns()
{
    QTest::addColumn<SProcessorNode>("node");
    QTest::addColumn<QString>("strGroup");
    QTest::addColumn<bool>("bChiefMode");
    QTest::addColumn<QString>("strText");
    QTest::addColumn<QString>("strDescription");
}

void AddProcessor(const char* szCase, const SProcessorNode& node, const QString& strText, const QString& strDescription,
                  const QString& strGroup = QString(), bool bChiefMode = false)
{
    QTest::newRow(szCase) << node << strGroup << bChiefMode << strText << strDescription;
}

void AddGroup(const char* szCase, const SProcessorGroupNode& group, bool bChiefMode, const QString& strText,
              const QString& strDescription)
{
    QTest::newRow(szCase) << group << bChiefMode << strText << strDescription;
}

} // namespace

class CRowSpeechTest : public QObject
{
    Q_OBJECT

private slots:
    void aProcessorSaysWhatItsRowShows_data()
    {
        AddProcessorColumns();
        AddProcessor("all parts", Wall().Online().Primary().Chief(), "Wall left, online, Primary, Chief",
                     "project Aurora, group Main stage, 192.168.1.11", "Main stage", true);
        AddProcessor("in no group", Wall().Online().Primary(), "Wall left, online, Primary", "project Aurora, 192.168.1.11");
        AddProcessor("backup", Wall().Online().Backup(), "Wall left, online, Backup", "project Aurora, 192.168.1.11");
        AddProcessor("unknown role", Wall().Online().Failover(7), "Wall left, online, Backup", "project Aurora, 192.168.1.11");
        AddProcessor("no role", Wall().Online(), "Wall left, online", "project Aurora, 192.168.1.11");
        AddProcessor("no project", Wall().Online().Primary().Project(""), "Wall left, online", "192.168.1.11");
        AddProcessor("offline", Wall().Primary(), "Wall left, offline", "group Main stage, 192.168.1.11", "Main stage");
        AddProcessor("offline Chief", Wall().Chief(), "Wall left, offline, Chief", "192.168.1.11", QString(), true);
        AddProcessor("Chief without the mode", Wall().Online().Chief(), "Wall left, online", "project Aurora, 192.168.1.11");
        AddProcessor("other Chief value", Wall().Online().Chief(2), "Wall left, online", "project Aurora, 192.168.1.11",
                     QString(), true);
        AddProcessor("percent signs", Wall().Online().Project("%1 %2"), "Wall left, online",
                     "project %1 %2, group 100 %1, 192.168.1.11", "100 %1");
    }
    void aProcessorSaysWhatItsRowShows()
    {
        QFETCH(SProcessorNode, node);
        QFETCH(QString, strGroup);
        QFETCH(bool, bChiefMode);
        const RowSpeech::SWords words = RowSpeech::Processor(node, strGroup, bChiefMode);
        QTEST(words.strText, "strText");
        QTEST(words.strDescription, "strDescription");
    }

    void aGroupSaysItsCountAndItsChief_data()
    {
        QTest::addColumn<SProcessorGroupNode>("group");
        QTest::addColumn<bool>("bChiefMode");
        QTest::addColumn<QString>("strText");
        QTest::addColumn<QString>("strDescription");
        const CGroupBuilder four = Group("Main stage", { Wall(), Processor("b"), Processor("c"), Processor("d") });
        AddGroup("four", four, true, "Main stage, group, 4 processors", "");
        AddGroup("with a Chief", CGroupBuilder(four).Chief("Wall left"), true, "Main stage, group, 4 processors",
                 "Chief Wall left");
        AddGroup("without the mode", CGroupBuilder(four).Chief("Wall left"), false, "Main stage, group, 4 processors", "");
        AddGroup("a Chief elsewhere", CGroupBuilder(four).Chief("other"), true, "Main stage, group, 4 processors", "has a Chief");
        AddGroup("one", Group("Hall", { Wall() }), false, "Hall, group, 1 processor", "");
        AddGroup("none", Group("Hall"), false, "Hall, group, 0 processors", "");
    }
    void aGroupSaysItsCountAndItsChief()
    {
        QFETCH(SProcessorGroupNode, group);
        QFETCH(bool, bChiefMode);
        const RowSpeech::SWords words = RowSpeech::Group(group, bChiefMode);
        QTEST(words.strText, "strText");
        QTEST(words.strDescription, "strDescription");
    }

    void theRootSaysTheNumberThatItShows()
    {
        const RowSpeech::SWords words = RowSpeech::All(Root({ Group("Stage", { Wall(), Processor("b") }) }, { Processor("c") }));
        QCOMPARE(words.strText, QStringLiteral("All processors(3)"));
        QCOMPARE(words.strDescription, QString());
    }

    void theInformationRowSaysItsFourLines()
    {
        const QString strId = ProcessorId("Wall left").toString(QUuid::WithoutBraces);
        QCOMPARE(RowSpeech::Info(Wall().Online()).strText,
                 QStringLiteral("Type: KX-4\nIP: 192.168.1.11\nProject: Aurora\nUID: ") + strId);
        QCOMPARE(RowSpeech::Info(Wall().Online().Project("")).strText,
                 QStringLiteral("Type: KX-4\nIP: 192.168.1.11\nProject: --\nUID: ") + strId);
        QCOMPARE(RowSpeech::Info(Wall()).strText, QStringLiteral("Type: --\nIP: 192.168.1.11\nProject: --\nUID: --"));
        QCOMPARE(RowSpeech::Info(Wall()).strDescription, QString());
    }

    void listsAndEditorHaveNames()
    {
        QCOMPARE(RowSpeech::Tree(true), QStringLiteral("Discovered processors"));
        QCOMPARE(RowSpeech::Tree(false), QStringLiteral("Simulators"));
        QCOMPARE(RowSpeech::Editor("Wall left"), QStringLiteral("Name of Wall left"));
    }

    void aTranslationHasItsOwnWordsAndItsOwnMarkBetweenThem()
    {
        const CMapTranslator translator({ { "CProcessorTree|, ", " | " },
                                          { "CProcessorTree|online", "antwortet" },
                                          { "CProcessorTree|project %1", "Projekt %1" },
                                          { "CProcessorTree|group %1", "in %1" } });
        const RowSpeech::SWords words = RowSpeech::Processor(Wall().Online(), "Main stage", false);
        QCOMPARE(words.strText, QStringLiteral("Wall left | antwortet"));
        QCOMPARE(words.strDescription, QStringLiteral("Projekt Aurora | in Main stage | 192.168.1.11"));
    }

    void aTranslationOrdersTheWordsOfAGroup()
    {
        const CMapTranslator translator({ { "CProcessorTree|%1, group, 1 processor", "Gruppe aus einem: %1" },
                                          { "CProcessorTree|%1, group, %n processors", "Gruppe aus %n: %1" } });
        QCOMPARE(RowSpeech::Group(Group("100 %1", { Wall() }), false).strText, QStringLiteral("Gruppe aus einem: 100 %1"));
        QCOMPARE(RowSpeech::Group(Group("100 %n", { Wall(), Processor("b") }), false).strText,
                 QStringLiteral("Gruppe aus 2: 100 %n"));
    }

    // Which form a number takes is up to the language.
    void theNumberOfAGroupIsHandedToTheTranslation()
    {
        const CNumberTranslator translator;
        QCOMPARE(RowSpeech::Group(Group("Hall", { Wall(), Processor("b") }), false).strText, QStringLiteral("Hall in form 2"));
        QCOMPARE(RowSpeech::Group(Group("Hall"), false).strText, QStringLiteral("Hall in form 0"));
    }
};

PTV_TEST_MAIN(CRowSpeechTest)
#include "tst_rowspeech.moc"
