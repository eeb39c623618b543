#pragma once

// Helpers shared by the test suites: read an element from a string the way a
// parent would, and write one to a string.

#include <IXmlElement.h>

#include <QIODevice>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <QtTest>

#include <algorithm>
#include <cstring>
#include <limits>

namespace KelXmlTest {

// Positions a reader on the first start tag of xml and lets the element read
// it under the tag's own name (or under elementName when given). Returns the
// reader's error text, empty when the element was read cleanly.
inline QString read(KelXml::IXmlElement& element, const QString& xml,
                    const QString& elementName = QString())
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::StartElement) {
    }
    element.processXml(reader, elementName.isNull() ? reader.name().toString() : elementName);
    return reader.hasError() ? reader.errorString() : QString();
}

// The element written under the given name, without an XML declaration.
inline QString write(const KelXml::IXmlElement& element, const QString& elementName)
{
    QString out;
    QXmlStreamWriter writer(&out);
    element.produceXml(writer, elementName);
    return out;
}

// The located reader error that an element of the named class raises.
inline QString located(const QString& classname, int line, int column, const QString& message)
{
    return QStringLiteral("in %1 (line %2, column %3): %4.")
        .arg(classname)
        .arg(line)
        .arg(column)
        .arg(message);
}

// The report block of an element of the named class holding the given
// messages, one per line, as syntaxError() returns it.
inline QString block(const QString& classname, const QStringList& messages)
{
    return QStringLiteral("+++ in %1 Begin:\n%2\n--- in %1 End")
        .arg(classname, messages.join(QLatin1Char('\n')));
}

// A device that hands out its data as a stream, like a pipe or a socket,
// at most `piece` bytes a read (as a slow source does), and counts what was
// taken from it. An open-ended one is never at its end: more may come once
// it has handed over all it holds.
class Stream : public QIODevice
{
public:
    enum Ending
    {
        Ends,
        OpenEnded,
    };
    explicit Stream(const QByteArray& data, Ending ending = Ends,
                    qint64 piece = std::numeric_limits<qint64>::max())
        : m_data(data)
        , m_ending(ending)
        , m_piece(piece)
    {
        open(QIODevice::ReadOnly);
    }
    bool isSequential() const override { return true; }
    bool atEnd() const override { return m_ending == Ends && QIODevice::atEnd(); }
    qint64 taken() const { return m_at; }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        const qint64 count = std::min({maxSize, m_piece, qint64(m_data.size()) - m_at});
        std::memcpy(data, m_data.constData() + m_at, size_t(count));
        m_at += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_data;
    Ending m_ending;
    qint64 m_piece;
    qint64 m_at = 0;
};

} // namespace KelXmlTest
