#include "XmlElementRegistry.h"

#include "XmlBandwidthType.h"
#include "XmlCoordinateType.h"
#include "XmlDBMListType.h"
#include "XmlDBMType.h"
#include "XmlDecibelListType.h"
#include "XmlDecibelType.h"
#include "XmlDegreesListType.h"
#include "XmlDegreesType.h"
#include "XmlDfPrecisionType.h"
#include "XmlFieldstrengthType.h"
#include "XmlFreqListType.h"
#include "XmlFreqThrListType.h"
#include "XmlFreqThrPairType.h"
#include "XmlFreqType.h"
#include "XmlKeyType.h"
#include "XmlLengthType.h"
#include "XmlMapListType.h"
#include "XmlMapType.h"
#include "XmlNameAllMultiType.h"
#include "XmlNameAllType.h"
#include "XmlNumCoordType.h"
#include "XmlObjNameType.h"
#include "XmlPowerType.h"
#include "XmlReferenceType.h"
#include "XmlSinadType.h"
#include "XmlTxParamType.h"

namespace KelXml {

namespace {

struct Registration
{
    const char* className;
    const char* alias;
    const char* summary;
    IXmlElement* (*create)();
};

template <class T>
IXmlElement* make()
{
    return new T;
}

// One row per element class. A class joins the registry by a row here.
const Registration registrations[] = {
    {"XmlDBMType", "", "a level in dBm", &make<XmlDBMType>},
    {"XmlDecibelType", "", "a gain or loss in dB", &make<XmlDecibelType>},
    {"XmlDegreesType", "", "an angle in degrees, 0 to 90", &make<XmlDegreesType>},
    {"XmlPowerType", "", "a power in W", &make<XmlPowerType>},
    {"XmlLengthType", "", "a length in whole metres", &make<XmlLengthType>},
    {"XmlFreqType", "", "a frequency in Hz, kHz, MHz or GHz", &make<XmlFreqType>},
    {"XmlBandwidthType", "", "a bandwidth in whole kHz", &make<XmlBandwidthType>},
    {"XmlSinadType", "", "a SINAD ratio", &make<XmlSinadType>},
    {"XmlFieldstrengthType", "", "a field strength in dBm", &make<XmlFieldstrengthType>},
    {"XmlDfPrecisionType", "", "a direction-finding precision in degrees",
     &make<XmlDfPrecisionType>},
    {"XmlCoordinateType", "", "a longitude and latitude", &make<XmlCoordinateType>},
    {"XmlNumCoordType", "", "a numbered longitude and latitude", &make<XmlNumCoordType>},
    {"XmlDBMListType", "", "a list of dBm levels", &make<XmlDBMListType>},
    {"XmlDecibelListType", "", "a list of dB values", &make<XmlDecibelListType>},
    {"XmlDegreesListType", "", "a list of angles", &make<XmlDegreesListType>},
    {"XmlFreqListType", "", "a list of frequencies", &make<XmlFreqListType>},
    {"XmlFreqThrPairType", "", "a frequency with its receiver threshold",
     &make<XmlFreqThrPairType>},
    {"XmlFreqThrListType", "", "a list of frequency/threshold pairs", &make<XmlFreqThrListType>},
    {"XmlKeyType", "", "an integer map key", &make<XmlKeyType>},
    {"XmlMapType", "", "one key/length map entry", &make<XmlMapType>},
    {"XmlMapListType", "", "a key/length map", &make<XmlMapListType>},
    {"XmlObjNameType", "", "an object name", &make<XmlObjNameType>},
    {"XmlReferenceType", "", "a command reference", &make<XmlReferenceType>},
    {"XmlNameAllType", "", "all objects or one named object", &make<XmlNameAllType>},
    {"XmlNameAllMultiType", "", "all objects or a list of named objects",
     &make<XmlNameAllMultiType>},
    {"XmlTxParamType", "", "frequency, power, antenna height and bandwidth of a transmitter",
     &make<XmlTxParamType>},
};

const Registration* find(const QString& nameOrAlias)
{
    if (nameOrAlias.isEmpty())
        return nullptr;
    for (const Registration& registration : registrations) {
        if (nameOrAlias == QLatin1String(registration.className) ||
            nameOrAlias == QLatin1String(registration.alias))
            return &registration;
    }
    return nullptr;
}

} // namespace

QList<XmlElementRegistry::Entry> XmlElementRegistry::entries()
{
    QList<Entry> result;
    for (const Registration& registration : registrations) {
        result.append({QLatin1String(registration.className), QLatin1String(registration.alias),
                       QLatin1String(registration.summary)});
    }
    return result;
}

QStringList XmlElementRegistry::classNames()
{
    QStringList names;
    for (const Registration& registration : registrations)
        names.append(QLatin1String(registration.className));
    return names;
}

QString XmlElementRegistry::resolve(const QString& nameOrAlias)
{
    const Registration* registration = find(nameOrAlias);
    return registration ? QLatin1String(registration->className) : QString();
}

std::unique_ptr<IXmlElement> XmlElementRegistry::create(const QString& nameOrAlias)
{
    const Registration* registration = find(nameOrAlias);
    return std::unique_ptr<IXmlElement>(registration ? registration->create() : nullptr);
}

} // namespace KelXml
