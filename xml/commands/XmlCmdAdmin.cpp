#include "XmlCmdAdmin.h"

#include "XmlElementReader.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlCmdAdmin");

const QString queryVersionElement = QStringLiteral("QueryVersion");
const QString referenceElement = QStringLiteral("Reference");

} // namespace

XmlCmdAdmin::XmlCmdAdmin()
    : XmlElementBase(PermanentName{&typeName})
{}

void XmlCmdAdmin::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // Reading starts on the next token wherever the reader stands. The
    // QueryVersion start tag only passes; its end tag sets the type and lets
    // the element end. Neither child's order nor count is checked.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::ElementWording);
    struct Tokens : XmlElementReader::Tokens
    {
        XmlCmdAdmin& self;
        QXmlStreamReader& reader;
        bool queryClosed = false;

        bool start(QStringView name)
        {
            if (XmlKit::sameName(name, queryVersionElement))
                return true;
            if (!XmlKit::sameName(name, referenceElement))
                return false;
            self.m_cmdReference.processXml(reader, referenceElement);
            return true;
        }
        bool passEnd(QStringView name)
        {
            if (!XmlKit::sameName(name, queryVersionElement))
                return false;
            self.m_adminCmd = AdminCmdQueryVersion;
            queryClosed = true;
            return true;
        }
        bool mayEnd() { return queryClosed; }
    } tokens{{}, *this, reader};
    in.loop(tokens);
}

void XmlCmdAdmin::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeStartElement(elementName);
    if (m_adminCmd == AdminCmdQueryVersion)
        writer.writeEmptyElement(queryVersionElement);
    m_cmdReference.produceXml(writer, referenceElement);
    writer.writeEndElement();
}

void XmlCmdAdmin::checkContent(XmlChecks& checks) const
{
    checks.expect(m_adminCmd != AdminCmdNone,
                  QStringLiteral("Invalid Administrative command type"));
    // The report collects the reference's text into the reference itself.
    checks.child(const_cast<XmlReferenceType*>(&m_cmdReference));
}

void XmlCmdAdmin::reset()
{
    m_cmdReference.reset();
    m_orderDef.reset();
    m_adminCmd = AdminCmdNone;
    XmlElementBase::reset();
}

} // namespace KelXml
