#pragma once

#include "XmlElementBase.h"

#include <limits>
#include <type_traits>

namespace KelXml {

/// The base of a measured value: one number with a version and, mostly, a
/// unit, such as `<RxThreshold version="1.0" unit="dBm">-107.000000000000000</RxThreshold>`.
/// Each class states what sets it apart in one Shape (its unit rule, number
/// kind, written format, default, bound and messages) and offers accessors
/// named after its value; this base reads, writes, checks and resets it.
///
/// Reading sets the version to "1.0", takes a non-empty version attribute and,
/// for a unit that is read, the required unit attribute; the text is converted
/// piece by piece, and a piece that is not a number raises "Illegal value
/// (must be numeric)" and leaves the default. An empty element keeps the value
/// held. The report names the version, then the bound, then the unit.
/// \ingroup framework
class KELXML_EXPORT XmlMeasuredValue : public XmlElementBase
{
public:
    /// How the unit attribute is treated.
    enum UnitRule
    {
        NoUnit,    ///< no unit attribute, neither read nor written
        FixedUnit, ///< written always, never read, never checked
        ReadUnit,  ///< required on reading, written as held, checked
    };
    /// How the text is converted, and how the value is written.
    enum NumberKind
    {
        Real,        ///< any number QString::toDouble() reads
        WholeNumber, ///< a whole number (QString::toInt()), held as a double
        Integer,     ///< a whole number, held and written as an integer
    };
    /// A unit a read value may be given in, with the factors that take a text
    /// in that unit to the value held, and the value held back to the text.
    struct UnitFactor
    {
        XmlText word;
        double read;
        double write;
    };
    /// The values that pass the check: above low (or at it, when included)
    /// and below high (or at it). NaN passes every bound.
    struct Bound
    {
        double low = -std::numeric_limits<double>::infinity();
        bool lowIncluded = true;
        double high = std::numeric_limits<double>::infinity();
        bool highIncluded = true;

        static Bound greaterThan(double value) { return {value, false}; }
        static Bound atLeast(double value) { return {value, true}; }
        Bound lessThan(double value) const { return {low, lowIncluded, value, false}; }
        Bound atMost(double value) const { return {low, lowIncluded, value, true}; }

        bool holds(double value) const
        {
            const bool under = lowIncluded ? value < low : value <= low;
            const bool over = highIncluded ? value > high : value >= high;
            return !(under || over);
        }
    };
    /// What sets one measured value apart from another: one per class, with
    /// static storage, stated as a chain that reads like the class's table:
    ///
    ///     const auto shape = XmlMeasuredValue::Shape::named("XmlPowerType")
    ///                            .readUnit("W", "Illegal unit.")
    ///                            .real('f', 15)
    ///                            .byDefault(-9.9)
    ///                            .bound(Bound::atLeast(-60.0), "Illegal power.");
    struct Shape
    {
        /// The class name of the messages. It stays the first member: an
        /// object finds its shape from the class name it holds.
        QString classname;
        UnitRule unitRule = NoUnit;
        /// The unit of a new object, the fixed unit, or the one unit a read
        /// unit must be (when there are no factors).
        XmlText unit;
        NumberKind number = Real;
        /// The written format and precision of QString::number (Real and
        /// WholeNumber).
        char format = 'g';
        int precision = 6;
        double defaultValue = 0.0;
        Bound bound;
        /// The report for a value outside the bound; null: no bound.
        QString boundMessage;
        /// The report for a read unit that is not accepted; null: not checked.
        QString unitMessage;
        /// The units a read value may be given in, converted by their factors;
        /// a value in another unit is not taken. Null: the value is taken as
        /// it stands, and only `unit` is accepted.
        const UnitFactor* factors = nullptr;
        int factorCount = 0;

        static Shape named(const char* classname);
        /// The unit is written always and never read.
        Shape fixedUnit(const QString& unit) const;
        /// The unit is required on reading and must be this one.
        Shape readUnit(const char* unit, const char* message) const;
        /// The unit is required on reading and must be one of the factors'
        /// (the defaultUnit for a new object); the text is converted by them.
        template <int Count>
        Shape readUnit(const char* defaultUnit, const UnitFactor (&units)[Count],
                       const char* message) const
        {
            Shape shape = readUnit(defaultUnit, message);
            shape.factors = units;
            shape.factorCount = Count;
            return shape;
        }
        Shape real(char writtenFormat, int writtenPrecision) const;
        Shape wholeNumber(char writtenFormat, int writtenPrecision) const;
        Shape integer() const;
        Shape byDefault(double value) const;
        Shape bounded(const Bound& values, const char* message) const;
    };

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    /// The same rules as the report, without building one: values are the
    /// most numerous elements, so their verdict takes the short way.
    bool isValid() const override;
    void reset() override;

    /// The version attribute; only "1.0" is supported.
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    explicit XmlMeasuredValue(const Shape& shape);

    double value() const { return m_value; }
    void setValue(double value) { m_value = value; }
    const QString& unitText() const { return m_unit; }
    void setUnitText(const QString& unit) { m_unit = unit; }

    void checkContent(XmlChecks& checks) const override;

private:
    const Shape& ownShape() const;
    bool supportsVersion() const;
    bool withinBound() const;
    bool acceptsUnit() const;
    const UnitFactor* factorOf(const QString& unit) const;

    XmlText m_unit;
    XmlText m_version;
    double m_value;
};

} // namespace KelXml
