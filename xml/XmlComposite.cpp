#include "XmlComposite.h"

#include "XmlKit.h"
#include "XmlLayout.h"

namespace KelXml {

XmlComposite::XmlComposite(const XmlLayout& layout)
    : XmlElementBase(PermanentName{&layout.m_identity->classname})
    , m_version(XmlKit::defaultVersionText)
{}

const XmlLayout& XmlComposite::layout() const
{
    return XmlLayout::ofName(classname());
}

void XmlComposite::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    layout().read(*this, m_version, reader, elementName);
}

bool XmlComposite::readElement(QXmlStreamReader& reader, const QString& elementName)
{
    return layout().read(*this, m_version, reader, elementName);
}

void XmlComposite::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    layout().write(*this, m_version, writer, elementName);
}

void XmlComposite::reset()
{
    layout().resetChildren(*this);
    m_version = XmlKit::defaultVersionText;
    XmlElementBase::reset();
}

void XmlComposite::checkContent(XmlChecks& checks) const
{
    checkVersion(checks);
    checkChildren(checks);
}

void XmlComposite::checkVersion(XmlChecks& checks) const
{
    if (layout().versionRule() != XmlLayout::NoVersion)
        checks.version(supportsVersion(), m_version);
}

void XmlComposite::checkChildren(XmlChecks& checks) const
{
    layout().checkChildren(*this, checks);
}

const QString* XmlComposite::writtenNameOf(const XmlElementBase& child) const
{
    return layout().nameOf(*this, child);
}

bool XmlComposite::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

void XmlComposite::describe(XmlWalker& walker, const QString&) const
{
    layout().describe(*this, m_version, walker);
}

} // namespace KelXml
