// kelxml json: the typed content of a document as JSON, one object per
// element in writing order, for programs. A view only: nothing reads it back.

#include "ToolCommands.h"

#include <XmlElementBase.h>
#include <XmlWalk.h>

#include <vector>

using KelXml::XmlValue;

namespace {

// True when the text is a number as JSON writes one.
bool isJsonNumber(const QString& text)
{
    const int size = int(text.size());
    int i = 0;
    const auto digits = [&]() {
        const int start = i;
        while (i < size && text.at(i) >= QLatin1Char('0') && text.at(i) <= QLatin1Char('9'))
            ++i;
        return i - start;
    };
    if (i < size && text.at(i) == QLatin1Char('-'))
        ++i;
    const int start = i;
    const int whole = digits();
    if (whole == 0 || (whole > 1 && text.at(start) == QLatin1Char('0')))
        return false;
    if (i < size && text.at(i) == QLatin1Char('.')) {
        ++i;
        if (digits() == 0)
            return false;
    }
    if (i < size && (text.at(i) == QLatin1Char('e') || text.at(i) == QLatin1Char('E'))) {
        ++i;
        if (i < size && (text.at(i) == QLatin1Char('+') || text.at(i) == QLatin1Char('-')))
            ++i;
        if (digits() == 0)
            return false;
    }
    return i == size;
}

// A value as JSON: numbers with the digits the class writes (a text JSON
// cannot hold as a number, such as "nan", as a string), booleans as such,
// everything else as the text written.
QString jsonValue(const XmlValue& value)
{
    switch (value.type()) {
    case XmlValue::Number:
    case XmlValue::Integer:
        return isJsonNumber(value.text()) ? value.text() : json(value.text());
    case XmlValue::Boolean:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case XmlValue::None:
        return QStringLiteral("null");
    default:
        return json(value.text());
    }
}

// Writes the walk as nested JSON objects while it goes: nothing is held but
// the state of the elements open.
class JsonWriter : public KelXml::XmlWalker
{
public:
    explicit JsonWriter(QTextStream& stream)
        : m_stream(stream)
    {}

    void enter(const QString& elementName, const QString& className,
               const KelXml::XmlElementBase*) override
    {
        if (!m_open.empty()) {
            Open& parent = m_open.back();
            closeAttributes(parent);
            m_stream << (parent.children ? "," : ",\"children\":[");
            parent.children = true;
        }
        m_stream << "{\"element\":" << json(elementName)
                 << ",\"class\":" << (className.isNull() ? QStringLiteral("null") : json(className))
                 << ",\"attributes\":{";
        m_open.push_back({});
    }
    void attribute(const QString& name, const XmlValue& value) override
    {
        Open& element = m_open.back();
        m_stream << (element.attributes ? "," : "") << json(name) << ':' << jsonValue(value);
        element.attributes = true;
    }
    void value(const XmlValue& value) override
    {
        Open& element = m_open.back();
        closeAttributes(element);
        m_stream << ",\"value\":" << jsonValue(value);
        if (!value.unit().isNull())
            m_stream << ",\"unit\":" << json(value.unit());
    }
    void leave() override
    {
        Open& element = m_open.back();
        closeAttributes(element);
        m_stream << (element.children ? "]}" : ",\"children\":[]}");
        m_open.pop_back();
    }

private:
    struct Open
    {
        bool attributes = false; // an attribute was written
        bool attributesClosed = false;
        bool children = false; // the children's array is open
    };
    void closeAttributes(Open& element)
    {
        if (!element.attributesClosed)
            m_stream << '}';
        element.attributesClosed = true;
    }

    QTextStream& m_stream;
    std::vector<Open> m_open;
};

} // namespace

int runJson(const Invocation& invocation)
{
    int status = Valid;
    QString asClass;
    if (!classToRead(invocation, &asClass, &status, 1))
        return status;
    return readAndWrite(
        invocation, asClass, invocation.files.first(), [](const Reading& reading, QFile& output) {
            const auto* root = dynamic_cast<const KelXml::XmlElementBase*>(reading.element.get());
            if (!root)
                return int(Unreadable);
            QTextStream stream(&output);
            JsonWriter writer(stream);
            root->walk(writer, reading.elementName);
            stream << '\n';
            stream.flush();
            return int(Valid);
        });
}
