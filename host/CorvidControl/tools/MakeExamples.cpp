// Writes the example lists into the folder that is named.

#include "CorvidControl/file/CListFormat.h"
#include "CorvidControl/tools/CExampleLists.h"

#include <QCoreApplication>
#include <QDir>
#include <QSaveFile>

#include <cstdio>

namespace {

bool Save(const QString& strPath, const SProcessorAllNode& node)
{
    QSaveFile file(strPath);
    file.open(QIODevice::WriteOnly);
    file.write(CListFormat::Write(node));
    if (file.commit()) {
        return true;
    }
    std::fprintf(stderr, "%s: %s\n", qPrintable(strPath), qPrintable(file.errorString()));
    return false;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_examples FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const bool bSaved = Save(folder.filePath(QStringLiteral("studio.kvtl")), CExampleLists::BuildStudio())
        && Save(folder.filePath(QStringLiteral("limits.kvtl")), CExampleLists::BuildLimits())
        && Save(folder.filePath(QStringLiteral("single.kvtl")), CExampleLists::BuildSingle())
        && Save(folder.filePath(QStringLiteral("empty.kvtl")), CExampleLists::BuildEmpty());
    return bSaved ? 0 : 1;
}
