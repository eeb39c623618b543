#include "XmlMeasuredValue.h"

#include "XmlElementReader.h"
#include "XmlKit.h"
#include "XmlNumberText.h"
#include "XmlWalk.h"

namespace KelXml {

static_assert(std::is_standard_layout<XmlMeasuredValue::Shape>::value,
              "a value finds its shape from the address of the class name");

XmlMeasuredValue::Shape XmlMeasuredValue::Shape::named(const char* classname)
{
    Shape shape;
    shape.classname = QString::fromUtf8(classname);
    return shape;
}

XmlMeasuredValue::Shape XmlMeasuredValue::Shape::fixedUnit(const QString& word) const
{
    Shape shape = *this;
    shape.unitRule = FixedUnit;
    shape.unit = word;
    return shape;
}

XmlMeasuredValue::Shape XmlMeasuredValue::Shape::readUnit(const char* word,
                                                          const char* message) const
{
    Shape shape = *this;
    shape.unitRule = ReadUnit;
    shape.unit = QString::fromUtf8(word);
    shape.unitMessage = QString::fromUtf8(message);
    return shape;
}

XmlMeasuredValue::Shape XmlMeasuredValue::Shape::real(char writtenFormat,
                                                      int writtenPrecision) const
{
    Shape shape = *this;
    shape.number = Real;
    shape.format = writtenFormat;
    shape.precision = writtenPrecision;
    return shape;
}

XmlMeasuredValue::Shape XmlMeasuredValue::Shape::wholeNumber(char writtenFormat,
                                                             int writtenPrecision) const
{
    Shape shape = real(writtenFormat, writtenPrecision);
    shape.number = WholeNumber;
    return shape;
}

XmlMeasuredValue::Shape XmlMeasuredValue::Shape::integer() const
{
    Shape shape = *this;
    shape.number = Integer;
    return shape;
}

XmlMeasuredValue::Shape XmlMeasuredValue::Shape::byDefault(double value) const
{
    Shape shape = *this;
    shape.defaultValue = value;
    return shape;
}

XmlMeasuredValue::Shape XmlMeasuredValue::Shape::bounded(const Bound& values,
                                                         const char* message) const
{
    Shape shape = *this;
    shape.bound = values;
    shape.boundMessage = QString::fromUtf8(message);
    return shape;
}

XmlMeasuredValue::XmlMeasuredValue(const Shape& shape)
    : XmlElementBase(PermanentName{&shape.classname})
    , m_unit(shape.unit)
    , m_version(XmlKit::defaultVersionText)
    , m_value(shape.defaultValue)
{}

namespace {

std::optional<double> whole(XmlElementReader& in, QStringView text)
{
    const std::optional<int> value = in.parseInt(text);
    return value ? std::optional<double>(*value) : std::nullopt;
}

} // namespace

const XmlMeasuredValue::Shape& XmlMeasuredValue::ownShape() const
{
    // The class name is the shape's first member, so its address is the shape's.
    return *reinterpret_cast<const Shape*>(&classname());
}

void XmlMeasuredValue::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    const Shape& is = ownShape();
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (is.unitRule == ReadUnit ? !in.begin(m_version, XmlKit::unitAttribute, m_unit)
                                : !in.begin(m_version))
        return;
    in.readText([&](QStringView text) {
        const std::optional<double> read =
            is.number == Real ? in.parseDouble(text) : whole(in, text);
        if (!read)
            m_value = is.defaultValue;
        else if (!is.factors)
            m_value = *read;
        else if (const UnitFactor* factor = factorOf(m_unit))
            m_value = *read * factor->read;
        // A value in a unit without a factor is not taken; the unit check reports it.
    });
}

void XmlMeasuredValue::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    const Shape& is = ownShape();
    double written = m_value;
    if (is.factors) {
        if (const UnitFactor* factor = factorOf(m_unit))
            written *= factor->write;
    }
    const auto write = [&](const QString& text) {
        if (is.unitRule == NoUnit)
            XmlKit::writeValueElement(writer, elementName, m_version, text);
        else
            XmlKit::writeValueElement(writer, elementName, m_version, m_unit, text);
    };
    if (is.number == Integer)
        write(QString::number(int(written)));
    else
        write(XmlKit::numberText(written, is.format, is.precision));
}

void XmlMeasuredValue::checkContent(XmlChecks& checks) const
{
    const Shape& is = ownShape();
    checks.version(supportsVersion(), m_version);
    if (!is.boundMessage.isNull())
        checks.expect(withinBound(), is.boundMessage);
    if (!is.unitMessage.isNull())
        checks.expect(acceptsUnit(), is.unitMessage);
}

bool XmlMeasuredValue::isValid() const
{
    return supportsVersion() && withinBound() && acceptsUnit();
}

void XmlMeasuredValue::reset()
{
    const Shape& is = ownShape();
    m_unit = is.unit;
    m_version = XmlKit::defaultVersionText;
    m_value = is.defaultValue;
    XmlElementBase::reset();
}

bool XmlMeasuredValue::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

// A shape without a bound message has no bound, and one without a unit
// message does not check the unit.
bool XmlMeasuredValue::withinBound() const
{
    const Shape& is = ownShape();
    return is.boundMessage.isNull() || is.bound.holds(m_value);
}

bool XmlMeasuredValue::acceptsUnit() const
{
    const Shape& is = ownShape();
    if (is.unitMessage.isNull())
        return true;
    return is.factors ? factorOf(m_unit) != nullptr : XmlKit::sameText(m_unit, is.unit);
}

const XmlMeasuredValue::UnitFactor* XmlMeasuredValue::factorOf(const QString& unit) const
{
    const Shape& is = ownShape();
    for (int i = 0; i < is.factorCount; ++i) {
        if (XmlKit::sameText(unit, is.factors[i].word))
            return &is.factors[i];
    }
    return nullptr;
}

void XmlMeasuredValue::describe(XmlWalker& walker, const QString&) const
{
    const Shape& is = ownShape();
    double written = m_value;
    if (is.factors) {
        if (const UnitFactor* factor = factorOf(m_unit))
            written *= factor->write;
    }
    walker.attribute(XmlKit::versionAttribute, XmlValue::text(m_version));
    if (is.unitRule != NoUnit)
        walker.attribute(XmlKit::unitAttribute, XmlValue::text(m_unit));
    XmlValue typed =
        is.number == Integer
            ? XmlValue::integer(int(written))
            : XmlValue::number(m_value, XmlKit::numberText(written, is.format, is.precision));
    if (is.unitRule != NoUnit)
        typed = typed.withUnit(m_unit);
    walker.value(typed);
}

} // namespace KelXml
