// Writes example lists, each as NAME.kvtl, into the folder that is named.

#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/tools/ExampleLists.h"

#include <QCoreApplication>
#include <QDir>
#include <QMap>
#include <QSaveFile>

#include <cstdio>

namespace {

bool Save(const QString& strPath, const SProcessorAllNode& node)
{
    QSaveFile file(strPath);
    file.open(QIODevice::WriteOnly);
    file.write(ListFormat::Write(node));
    if (file.commit()) {
        return true;
    }
    std::fprintf(stderr, "%s: %s\n", qPrintable(strPath), qPrintable(file.errorString()));
    return false;
}

using Builder = SProcessorAllNode (*)();

// Null for a name that no list has.
Builder FindBuilder(const QString& strName)
{
    static const QMap<QString, Builder> mapBuilder{
        { QStringLiteral("studio"), ExampleLists::BuildStudio },
        { QStringLiteral("limits"), ExampleLists::BuildLimits },
        { QStringLiteral("single"), ExampleLists::BuildSingle },
        { QStringLiteral("empty"), ExampleLists::BuildEmpty },
    };
    return mapBuilder.value(strName);
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    if (argc < 3) {
        std::fprintf(stderr, "usage: make_examples FOLDER NAME...\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (int n = 2; n < argc; ++n) {
        const QString strName = QString::fromLocal8Bit(argv[n]);
        const Builder build = FindBuilder(strName);
        if (!build) {
            std::fprintf(stderr, "make_examples: there is no list %s\n", argv[n]);
            return 2;
        }
        if (!Save(folder.filePath(strName + QStringLiteral(".kvtl")), build())) {
            return 1;
        }
    }
    return 0;
}
