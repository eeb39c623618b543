#pragma once

#include "XmlComposite.h"

namespace KelXml {

/// The value range and unit of a result grid:
/// `<Values version="1.0" unit="dBm"><Min>-120</Min><Max>-40.5</Max></Values>`.
/// Both attributes are mandatory; reading refuses another version than "1.0".
/// A Min or Max text that is not a number is passed over and leaves the value
/// as it was.
/// \ingroup responses
class KELXML_EXPORT XmlGridValuesType : public XmlVersionedComposite
{
public:
    XmlGridValuesType();

    void reset() override;

    /// The unit of the grid's values, such as "dBm".
    const QString& unit() const { return m_unit; }
    void setUnit(const QString& unit) { m_unit = unit; }
    /// The smallest value of the grid, in the unit.
    double min() const { return m_min; }
    void setMin(double min) { m_min = min; }
    /// The largest value of the grid, in the unit.
    double max() const { return m_max; }
    void setMax(double max) { m_max = max; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();

    XmlText m_unit;
    double m_min;
    double m_max;
};

} // namespace KelXml
