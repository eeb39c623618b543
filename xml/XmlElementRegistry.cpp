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
    IXmlElement* (*copy)(const IXmlElement&);
};

template <class T>
IXmlElement* make()
{
    return new T;
}

template <class T>
IXmlElement* copyOf(const IXmlElement& element)
{
    const T* object = dynamic_cast<const T*>(&element);
    return object ? new T(*object) : nullptr;
}

// A row of the table for a default-constructible class.
#define KELXML_ROW(Class, alias, summary) {#Class, alias, summary, &make<Class>, &copyOf<Class>}

// One row per element class. A class joins the registry by a row here.
const Registration registrations[] = {
    KELXML_ROW(XmlDBMType, "", "a level in dBm"),
    KELXML_ROW(XmlDecibelType, "", "a gain or loss in dB"),
    KELXML_ROW(XmlDegreesType, "", "an angle in degrees, 0 to 90"),
    KELXML_ROW(XmlPowerType, "", "a power in W"),
    KELXML_ROW(XmlLengthType, "", "a length in whole metres"),
    KELXML_ROW(XmlFreqType, "", "a frequency in Hz, kHz, MHz or GHz"),
    KELXML_ROW(XmlBandwidthType, "", "a bandwidth in whole kHz"),
    KELXML_ROW(XmlSinadType, "", "a SINAD ratio"),
    KELXML_ROW(XmlFieldstrengthType, "", "a field strength in dBm"),
    KELXML_ROW(XmlDfPrecisionType, "", "a direction-finding precision in degrees"),
    KELXML_ROW(XmlCoordinateType, "", "a longitude and latitude"),
    KELXML_ROW(XmlNumCoordType, "", "a numbered longitude and latitude"),
    KELXML_ROW(XmlDBMListType, "", "a list of dBm levels"),
    KELXML_ROW(XmlDecibelListType, "", "a list of dB values"),
    KELXML_ROW(XmlDegreesListType, "", "a list of angles"),
    KELXML_ROW(XmlFreqListType, "", "a list of frequencies"),
    KELXML_ROW(XmlFreqThrPairType, "", "a frequency with its receiver threshold"),
    KELXML_ROW(XmlFreqThrListType, "", "a list of frequency/threshold pairs"),
    KELXML_ROW(XmlKeyType, "", "an integer map key"),
    KELXML_ROW(XmlMapType, "", "one key/length map entry"),
    KELXML_ROW(XmlMapListType, "", "a key/length map"),
    KELXML_ROW(XmlObjNameType, "", "an object name"),
    KELXML_ROW(XmlReferenceType, "", "a command reference"),
    KELXML_ROW(XmlNameAllType, "", "all objects or one named object"),
    KELXML_ROW(XmlNameAllMultiType, "", "all objects or a list of named objects"),
    KELXML_ROW(XmlTxParamType, "", "frequency, power, antenna height and bandwidth of a transmitter"),
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

std::unique_ptr<IXmlElement> XmlElementRegistry::copy(const QString& nameOrAlias,
                                                      const IXmlElement& element)
{
    const Registration* registration = find(nameOrAlias);
    return std::unique_ptr<IXmlElement>(registration ? registration->copy(element) : nullptr);
}

} // namespace KelXml
