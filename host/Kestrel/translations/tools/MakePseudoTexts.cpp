// Makes the file of the pseudo-language: make_pseudo_texts TEMPLATE RESULT. TEMPLATE is what lupdate makes of the sources
// for a language of which nothing is translated. RESULT is written only when it changes.

#include "Kestrel/translations/tools/PseudoText.h"

#include <QFile>
#include <QSaveFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cstdio>

namespace {

/// Passes everything on but the translations.
class CTextFile
{
public:
    explicit CTextFile(const QByteArray& templateIn) : reader(templateIn), writer(&result)
    {
        writer.setAutoFormatting(true);
    }

    /// Empty when the template could not be read.
    QByteArray Make()
    {
        while (!reader.atEnd()) {
            reader.readNext();
            Take();
        }
        return reader.hasError() ? QByteArray() : result;
    }

private:
    void Take()
    {
        if (reader.isWhitespace()) {
            return;
        }
        if (!reader.isStartElement()) {
            writer.writeCurrentToken(reader);
            return;
        }
        if (reader.name() == QLatin1String("translation")) {
            TakeTranslation();
        } else if (reader.name() == QLatin1String("name")) {
            strContext = Copy(QStringLiteral("name"));
        } else if (reader.name() == QLatin1String("source")) {
            strSource = Copy(QStringLiteral("source"));
        } else {
            nForms = reader.attributes().value(QLatin1String("numerus")) == QLatin1String("yes") ? nEnglishForms : 0;
            writer.writeCurrentToken(reader);
        }
    }

    QString Copy(const QString& strElement)
    {
        const QString strText = reader.readElementText();
        writer.writeTextElement(strElement, strText);
        return strText;
    }

    void TakeTranslation()
    {
        reader.skipCurrentElement();
        const QString strText = PseudoText::Make(strContext, strSource);
        if (nForms == 0) {
            writer.writeTextElement(QStringLiteral("translation"), strText);
            return;
        }
        writer.writeStartElement(QStringLiteral("translation"));
        for (int n = 0; n < nForms; ++n) {
            writer.writeTextElement(QStringLiteral("numerusform"), strText);
        }
        writer.writeEndElement();
    }

    static constexpr int nEnglishForms = 2; ///< one and many

    QXmlStreamReader reader;
    QByteArray result;
    QXmlStreamWriter writer;
    QString strContext;
    QString strSource;
    int nForms = 0; ///< of the message at hand, 0 for a text without a number
};

QByteArray Read(const QString& strFile)
{
    QFile file(strFile);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool Write(const QString& strFile, const QByteArray& bytes)
{
    QSaveFile file(strFile);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: make_pseudo_texts TEMPLATE RESULT\n", stderr);
        return 2;
    }
    const QString strResult = QString::fromLocal8Bit(argv[2]);
    const QByteArray bytes = CTextFile(Read(QString::fromLocal8Bit(argv[1]))).Make();
    if (bytes.isEmpty()) {
        std::fprintf(stderr, "make_pseudo_texts: %s is no file of texts; make it by lupdate\n", argv[1]);
        return 1;
    }
    if (Read(strResult) != bytes && !Write(strResult, bytes)) {
        std::fprintf(stderr, "make_pseudo_texts: %s cannot be written\n", argv[2]);
        return 1;
    }
    return 0;
}
