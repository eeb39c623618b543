#include "XmlFreqThrPairType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
const QString frequencyElement = QStringLiteral("Frequency");
const QString thresholdElement = QStringLiteral("RxThreshold");
} // namespace

XmlFreqThrPairType::XmlFreqThrPairType()
    : XmlElementBase(QStringLiteral("XmlFreqThrPairType"))
    , m_frequency(XmlOwnedPtr<XmlFreqType>::make())
    , m_threshold(XmlOwnedPtr<XmlFieldstrengthType>::make())
    , m_version(XmlKit::defaultVersion)
{}

void XmlFreqThrPairType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::ElementWording);
    if (!in.begin(m_version))
        return;
    in.readChildren({
        XmlChild::object(frequencyElement, *m_frequency),
        XmlChild::object(thresholdElement, *m_threshold),
    });
}

void XmlFreqThrPairType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeStartElement(writer, elementName, m_version);
    m_frequency->produceXml(writer, frequencyElement);
    m_threshold->produceXml(writer, thresholdElement);
    writer.writeEndElement();
}

void XmlFreqThrPairType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    checks.child(m_frequency.get());
    checks.child(m_threshold.get());
}

void XmlFreqThrPairType::reset()
{
    m_frequency->reset();
    m_threshold->reset();
    m_version = XmlKit::defaultVersion;
    XmlElementBase::reset();
}

bool XmlFreqThrPairType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
