#include "XmlDeviceType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

namespace {

// The tables a device may carry; reading accepts only these sets of them.
const QStringList tables = {QStringLiteral("Noises"),       QStringLiteral("KFactors"),
                            QStringLiteral("Attenuations"), QStringLiteral("Gains"),
                            QStringLiteral("Degrees"),      QStringLiteral("DBM")};

bool acceptedTables(const XmlSeen& seen)
{
    static const QList<QStringList> accepted = {
        {QStringLiteral("Noises")},
        {QStringLiteral("Noises"), QStringLiteral("KFactors"), QStringLiteral("Gains"),
         QStringLiteral("DBM")},
        {QStringLiteral("Noises"), QStringLiteral("KFactors"), QStringLiteral("Degrees"),
         QStringLiteral("DBM")},
        {QStringLiteral("Attenuations")},
        {QStringLiteral("KFactors")},
    };
    return accepted.contains(seen.among(tables));
}

} // namespace

// Written in table order; each table is read only before the tables named
// against it, which puts KFactors last when it comes with other tables.
const XmlLayout& XmlDeviceType::layout()
{
    using Self = XmlDeviceType;
    static const XmlLayout layout =
        XmlLayout(
            "XmlDeviceType", XmlElementReader::ElementWording, XmlLayout::CheckedVersion,
            {
                XmlField::object("DeviceCategory", &Self::m_category),
                XmlField::object("Name", &Self::m_objName),
                XmlField::object("Frequencies", &Self::m_frequencies),
                XmlField::optional("Noises", &Self::m_noises)
                    .refusedBy({"Noises", "KFactors", "Attenuations", "Gains", "Degrees", "DBM"}),
                XmlField::optional("KFactors", &Self::m_kFactors)
                    .refusedBy({"KFactors", "Attenuations"}),
                XmlField::optional("Attenuations", &Self::m_attenuations)
                    .refusedBy({"Noises", "KFactors", "Attenuations", "Gains", "Degrees", "DBM"}),
                XmlField::optional("Gains", &Self::m_gains)
                    .refusedBy({"KFactors", "Attenuations", "Gains", "Degrees", "DBM"}),
                XmlField::optional("Degrees", &Self::m_degrees)
                    .refusedBy({"KFactors", "Attenuations", "Gains", "Degrees", "DBM"}),
                XmlField::optional("DBM", &Self::m_dbm)
                    .refusedBy({"KFactors", "Attenuations", "DBM"}),
            })
            .completeWhen(acceptedTables);
    return layout;
}

XmlDeviceType::XmlDeviceType()
    : XmlVersionedComposite(layout())
{}

} // namespace KelXml
