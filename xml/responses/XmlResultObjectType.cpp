#include "XmlResultObjectType.h"

#include "XmlElementReader.h"
#include "XmlWalk.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlResultObjectType");
const QString stationElement = QStringLiteral("Station");
const QString emitterElement = QStringLiteral("Emitter");
const QString receiverElement = QStringLiteral("Receiver");
const QString dfElement = QStringLiteral("DF");

// Deletes the object held and reads a new one in its place.
template <class T>
void readNew(XmlOwnedPtr<T>& child, QXmlStreamReader& reader, const QString& name)
{
    child = XmlOwnedPtr<T>::make();
    child->processXml(reader, name);
}
} // namespace

XmlResultObjectType::XmlResultObjectType()
    : XmlElementBase(PermanentName{&typeName})
{}

void XmlResultObjectType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // One object is read; every later start tag is refused by name, and every
    // end tag is refused as well, the element's own included. Start tags are
    // worded as elements, end tags as named tokens.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::NamedWording);
    struct Tokens : XmlElementReader::Tokens
    {
        XmlResultObjectType& self;
        QXmlStreamReader& reader;
        XmlElementReader& in;
        bool objectRead = false;

        bool readObject(QStringView name)
        {
            if (XmlKit::sameName(name, stationElement))
                readNew(self.m_station, reader, stationElement);
            else if (XmlKit::sameName(name, dfElement))
                readNew(self.m_df, reader, dfElement);
            else if (XmlKit::sameName(name, emitterElement))
                readNew(self.m_emitter, reader, emitterElement);
            else if (XmlKit::sameName(name, receiverElement))
                readNew(self.m_rx, reader, receiverElement);
            else
                return false;
            return true;
        }
        bool start(QStringView name)
        {
            if (!objectRead && readObject(name)) {
                objectRead = true;
                return true;
            }
            // Raised here, so the loop's own wording for refused start tags never shows.
            in.fail(QStringLiteral("Unexpected element \"%1\"").arg(name.toString()));
            return false;
        }
        bool mayEnd() { return false; }
    } tokens{{}, *this, reader, in};
    in.loop(tokens);
}

void XmlResultObjectType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeStartElement(elementName);
    if (m_station)
        m_station->produceXml(writer, stationElement);
    if (m_emitter)
        m_emitter->produceXml(writer, emitterElement);
    if (m_rx)
        m_rx->produceXml(writer, receiverElement);
    if (m_df)
        m_df->produceXml(writer, dfElement);
    writer.writeEndElement();
}

void XmlResultObjectType::checkContent(XmlChecks& checks) const
{
    checks.child(m_station.get(), &stationElement);
    checks.child(m_emitter.get(), &emitterElement);
    checks.child(m_rx.get(), &receiverElement);
    checks.child(m_df.get(), &dfElement);
}

void XmlResultObjectType::reset()
{
    m_station.reset();
    m_emitter.reset();
    m_rx.reset();
    m_df.reset();
    XmlElementBase::reset();
}

void XmlResultObjectType::describe(XmlWalker& walker, const QString&) const
{
    walker.child(m_station.get(), stationElement);
    walker.child(m_emitter.get(), emitterElement);
    walker.child(m_rx.get(), receiverElement);
    walker.child(m_df.get(), dfElement);
}

} // namespace KelXml
