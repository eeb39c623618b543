#include "XmlElementBase.h"

#include <QXmlStreamReader>

namespace KelXml {

XmlElementBase::XmlElementBase(const QString& classname)
    : m_classname(classname)
{}

XmlElementBase::XmlElementBase(const XmlElementBase& other) = default;

XmlElementBase& XmlElementBase::operator=(const XmlElementBase& other)
{
    if (this != &other) {
        m_classname = other.m_classname;
        m_syntaxError = other.m_syntaxError;
    }
    return *this;
}

XmlElementBase::~XmlElementBase() = default;

bool XmlElementBase::isValid() const
{
    XmlChecks verdict;
    checkContent(verdict);
    return verdict.passed();
}

QString XmlElementBase::syntaxError()
{
    clearSyntaxError();
    XmlChecks report(*this);
    checkContent(report);
    return mySyntaxError();
}

void XmlElementBase::reset()
{
    m_syntaxError.clear();
}

void XmlElementBase::setReaderError(QXmlStreamReader& reader, const QString& message)
{
    static const QString located = QStringLiteral("in %3 (line %1, column %2): %4.");
    reader.raiseError(
        located.arg(reader.lineNumber()).arg(reader.columnNumber()).arg(m_classname).arg(message));
}

void XmlElementBase::addSyntaxError(const QString& message)
{
    if (message.isEmpty())
        return;
    if (!m_syntaxError.isEmpty())
        m_syntaxError += QLatin1Char('\n');
    m_syntaxError += message;
}

void XmlElementBase::clearSyntaxError()
{
    m_syntaxError.clear();
}

const QString& XmlElementBase::classname() const
{
    return m_classname;
}

QString XmlElementBase::mySyntaxError() const
{
    static const QString framed = QStringLiteral("+++ in %1 Begin:\n%2\n--- in %1 End");
    if (m_syntaxError.isEmpty())
        return QString();
    return framed.arg(m_classname, m_syntaxError);
}

void XmlElementBase::checkContent(XmlChecks&) const {}

XmlChecks::XmlChecks() = default;

XmlChecks::XmlChecks(XmlElementBase& element)
    : m_report(&element)
{}

void XmlChecks::version(bool supported, const QString& version)
{
    if (!supported)
        fail(QStringLiteral("Version \"%1\" not supported").arg(version));
}

void XmlChecks::expect(bool ok, const QString& message)
{
    if (!ok)
        fail(message);
}

void XmlChecks::child(IXmlElement* child)
{
    if (!child)
        return;
    if (m_report) {
        const QString text = child->syntaxError();
        if (!text.isEmpty())
            fail(text);
    } else if (m_passed && !child->isValid()) {
        m_passed = false;
    }
}

void XmlChecks::fail(const QString& message)
{
    m_passed = false;
    if (m_report)
        m_report->addSyntaxError(message);
}

} // namespace KelXml
