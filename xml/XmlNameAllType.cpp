#include "XmlNameAllType.h"

#include "XmlLayout.h"

namespace KelXml {

// Reading starts on the next token, wherever the reader stands. Either "All"
// or one "Name"; a "Reference" may stand anywhere and is skipped, and so is
// the content of "All".
const XmlLayout& XmlNameAllType::layout()
{
    using Self = XmlNameAllType;
    static const XmlLayout layout =
        XmlLayout("XmlNameAllType", XmlElementReader::ElementWording, XmlLayout::NoVersion,
                  {
                      XmlField::marker("Reference").anywhere().repeated(),
                      XmlField::oneOf({XmlField::marker("All").writtenWhen(&Self::all),
                                       XmlField::optional("Name", &Self::m_name)},
                                      ""),
                  })
            .withoutPositionTest();
    return layout;
}

XmlNameAllType::XmlNameAllType()
    : XmlComposite(layout())
    , m_initialized(false)
{}

void XmlNameAllType::setAll()
{
    m_initialized = true;
    m_name.reset();
}

void XmlNameAllType::setObjName(const XmlObjNameType& name)
{
    m_name.assign(name);
    m_initialized = true;
}

void XmlNameAllType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // A choice read to the end tag initializes the selection.
    if (readElement(reader, elementName))
        m_initialized = true;
}

void XmlNameAllType::checkContent(XmlChecks& checks) const
{
    checks.expect(m_initialized, QStringLiteral("Uninitialized."));
    checks.child(m_name.get());
}

void XmlNameAllType::reset()
{
    m_initialized = false;
    XmlComposite::reset();
}

} // namespace KelXml
