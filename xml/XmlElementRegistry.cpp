#include "XmlElementRegistry.h"

#include "XmlAoiType.h"
#include "XmlAreaPolyType.h"
#include "XmlAreaRectType.h"
#include "XmlAutoRespType.h"
#include "XmlBandwidthType.h"
#include "XmlBestSensorType.h"
#include "XmlCepProbType.h"
#include "XmlCepType.h"
#include "XmlCmdAdmin.h"
#include "XmlCmdCalc.h"
#include "XmlCmdCreate.h"
#include "XmlCmdDelete.h"
#include "XmlCmdRoot.h"
#include "XmlCoordinateType.h"
#include "XmlDBMListType.h"
#include "XmlDBMType.h"
#include "XmlDecibelListType.h"
#include "XmlDecibelType.h"
#include "XmlDegreesListType.h"
#include "XmlDegreesType.h"
#include "XmlDeploymentAreaType.h"
#include "XmlDetectProbType.h"
#include "XmlDeviceCategoryType.h"
#include "XmlDeviceListType.h"
#include "XmlDeviceType.h"
#include "XmlDfCovType.h"
#include "XmlDfPrecisionType.h"
#include "XmlDfType.h"
#include "XmlDocumentKind.h"
#include "XmlEmitterType.h"
#include "XmlFieldstrengthType.h"
#include "XmlFindSitesType.h"
#include "XmlFreqListType.h"
#include "XmlFreqThrListType.h"
#include "XmlFreqThrPairType.h"
#include "XmlFreqType.h"
#include "XmlGridResultType.h"
#include "XmlGridValuesType.h"
#include "XmlInteractRespType.h"
#include "XmlInterlinkPlanningType.h"
#include "XmlInterlinkResultType.h"
#include "XmlKelBtType.h"
#include "XmlKeyType.h"
#include "XmlLengthType.h"
#include "XmlMapListType.h"
#include "XmlMapType.h"
#include "XmlNameAllMultiType.h"
#include "XmlNameAllType.h"
#include "XmlNumCoordType.h"
#include "XmlObjNameType.h"
#include "XmlOrderDef.h"
#include "XmlPowerType.h"
#include "XmlPropModelEnumType.h"
#include "XmlPropModelFSType.h"
#include "XmlPropModelHataType.h"
#include "XmlPropModelITMType.h"
#include "XmlPropModelOLOSType.h"
#include "XmlPropModelP1546Type.h"
#include "XmlPropModelP452Type.h"
#include "XmlPropModelP526Type.h"
#include "XmlPropModelP533Type.h"
#include "XmlPropModelType.h"
#include "XmlReceiverType.h"
#include "XmlReferenceType.h"
#include "XmlResInfo_BestSensor_Type.h"
#include "XmlResInfo_Cep_Type.h"
#include "XmlResInfo_DetectProb_Type.h"
#include "XmlResInfo_DfCov_Type.h"
#include "XmlResInfo_FindSites_Type.h"
#include "XmlRespRoot.h"
#include "XmlResultGridType.h"
#include "XmlResultObjectType.h"
#include "XmlRxParamType.h"
#include "XmlSignalPathType.h"
#include "XmlSinadType.h"
#include "XmlStationInterlinkType.h"
#include "XmlStationType.h"
#include "XmlTxParamType.h"

namespace KelXml {

namespace {

struct Registration
{
    const char* className;
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

// The propagation-model command as the command message holds it.
IXmlElement* makeCommandForm()
{
    return new XmlPropModelType(true);
}

// A row of the table for a default-constructible class.
// clang-format off
#define KELXML_ROW(Class, summary) {#Class, summary, &make<Class>, &copyOf<Class>}
// clang-format on

// One row per element class. A class joins the registry by a row here; the
// roots of whole documents take their aliases from the table of document
// kinds (XmlDocumentKind.cpp).
const Registration registrations[] = {
    KELXML_ROW(XmlDBMType, "a level in dBm"),
    KELXML_ROW(XmlDecibelType, "a gain or loss in dB"),
    KELXML_ROW(XmlDegreesType, "an angle in degrees, 0 to 90"),
    KELXML_ROW(XmlPowerType, "a power in W"),
    KELXML_ROW(XmlLengthType, "a length in whole metres"),
    KELXML_ROW(XmlFreqType, "a frequency in Hz, kHz, MHz or GHz"),
    KELXML_ROW(XmlBandwidthType, "a bandwidth in whole kHz"),
    KELXML_ROW(XmlSinadType, "a SINAD ratio"),
    KELXML_ROW(XmlFieldstrengthType, "a field strength in dBm"),
    KELXML_ROW(XmlDfPrecisionType, "a direction-finding precision in degrees"),
    KELXML_ROW(XmlCoordinateType, "a longitude and latitude"),
    KELXML_ROW(XmlNumCoordType, "a numbered longitude and latitude"),
    KELXML_ROW(XmlDBMListType, "a list of dBm levels"),
    KELXML_ROW(XmlDecibelListType, "a list of dB values"),
    KELXML_ROW(XmlDegreesListType, "a list of angles"),
    KELXML_ROW(XmlFreqListType, "a list of frequencies"),
    KELXML_ROW(XmlFreqThrPairType, "a frequency with its receiver threshold"),
    KELXML_ROW(XmlFreqThrListType, "a list of frequency/threshold pairs"),
    KELXML_ROW(XmlKeyType, "an integer map key"),
    KELXML_ROW(XmlMapType, "one key/length map entry"),
    KELXML_ROW(XmlMapListType, "a key/length map"),
    KELXML_ROW(XmlObjNameType, "an object name"),
    KELXML_ROW(XmlReferenceType, "a command reference"),
    KELXML_ROW(XmlNameAllType, "all objects or one named object"),
    KELXML_ROW(XmlNameAllMultiType, "all objects or a list of named objects"),
    KELXML_ROW(XmlOrderDef, "the order id and sender of a message"),
    KELXML_ROW(XmlCmdAdmin, "an administrative command (version query)"),
    KELXML_ROW(XmlBestSensorType, "a best-sensor coverage request"),
    KELXML_ROW(XmlDetectProbType, "a detection-probability request"),
    KELXML_ROW(XmlDfCovType, "a direction-finding coverage request"),
    KELXML_ROW(XmlCepType, "a circular-error-probable request"),
    KELXML_ROW(XmlCepProbType, "a CEP probability level"),
    KELXML_ROW(XmlFindSitesType, "a possible-sites request"),
    KELXML_ROW(XmlInterlinkPlanningType, "an interlink-planning request between two stations"),
    KELXML_ROW(XmlCmdCreate, "a command creating one scenario object"),
    KELXML_ROW(XmlCmdDelete, "a command deleting scenario objects of one kind"),
    KELXML_ROW(XmlCmdCalc, "a command running one calculation"),
    KELXML_ROW(XmlCmdRoot, "a whole command message"),
    KELXML_ROW(XmlAreaRectType, "a rectangle given by two corners"),
    KELXML_ROW(XmlAreaPolyType, "a polygon of numbered vertices"),
    KELXML_ROW(XmlAoiType, "an area of interest"),
    KELXML_ROW(XmlDeploymentAreaType, "a deployment area"),
    KELXML_ROW(XmlDeviceCategoryType, "the category of a device"),
    KELXML_ROW(XmlDeviceType, "a device with its frequency tables"),
    KELXML_ROW(XmlDeviceListType, "a list of devices"),
    KELXML_ROW(XmlTxParamType, "frequency, power, antenna height and bandwidth of a transmitter"),
    KELXML_ROW(XmlRxParamType, "antenna height and threshold of a receiver"),
    KELXML_ROW(XmlSignalPathType, "a signal path from antenna to receiver"),
    KELXML_ROW(XmlStationInterlinkType, "the radio parameters of a station's interlink"),
    KELXML_ROW(XmlStationType, "a monitoring or direction-finding station"),
    KELXML_ROW(XmlDfType, "a direction finder"),
    KELXML_ROW(XmlEmitterType, "a known emitter"),
    KELXML_ROW(XmlReceiverType, "a receiver"),
    KELXML_ROW(XmlPropModelEnumType, "the name of a propagation model"),
    {"XmlPropModelType", "a propagation-model command", &makeCommandForm,
     &copyOf<XmlPropModelType>},
    KELXML_ROW(XmlPropModelFSType, "free-space model parameters"),
    KELXML_ROW(XmlPropModelHataType, "Okumura-Hata model parameters"),
    KELXML_ROW(XmlPropModelOLOSType, "OLOS model parameters"),
    KELXML_ROW(XmlPropModelITMType, "Irregular Terrain Model parameters"),
    KELXML_ROW(XmlPropModelP1546Type, "P.1546 model parameters"),
    KELXML_ROW(XmlPropModelP452Type, "P.452 model parameters"),
    KELXML_ROW(XmlPropModelP526Type, "P.526 model parameters"),
    KELXML_ROW(XmlPropModelP533Type, "P.533 model parameters"),
    KELXML_ROW(XmlResultGridType, "the size of a result grid"),
    KELXML_ROW(XmlGridValuesType, "the value range and unit of a result grid"),
    KELXML_ROW(XmlGridResultType, "the result of a grid calculation: parameters and picture file"),
    KELXML_ROW(XmlInterlinkResultType, "the result of an interlink planning"),
    KELXML_ROW(XmlResultObjectType, "a scenario object that the server reports"),
    KELXML_ROW(XmlAutoRespType, "the server's answer to one command"),
    KELXML_ROW(XmlInteractRespType, "a result the server sends on its own"),
    KELXML_ROW(XmlRespRoot, "a whole response message"),
    KELXML_ROW(XmlResInfo_BestSensor_Type, "a stored best-sensor coverage result"),
    KELXML_ROW(XmlResInfo_Cep_Type, "a stored circular-error-probable result"),
    KELXML_ROW(XmlResInfo_DetectProb_Type, "a stored detection-probability result"),
    KELXML_ROW(XmlResInfo_DfCov_Type, "a stored direction-finding coverage result"),
    KELXML_ROW(XmlResInfo_FindSites_Type, "a stored possible-sites result"),
    KELXML_ROW(XmlKelBtType, "a whole scenario snapshot"),
};

const Registration* findClass(const QString& className)
{
    for (const Registration& registration : registrations) {
        if (className == QLatin1String(registration.className))
            return &registration;
    }
    return nullptr;
}

// A class by its name, or a document's root class by the name of its kind.
const Registration* find(const QString& nameOrAlias)
{
    if (nameOrAlias.isEmpty())
        return nullptr;
    if (const Registration* registration = findClass(nameOrAlias))
        return registration;
    const XmlDocumentKind* kind = XmlDocumentKind::find(nameOrAlias);
    return kind ? findClass(QLatin1String(kind->rootClass)) : nullptr;
}

QString aliasOf(const char* className)
{
    const XmlDocumentKind* kind = XmlDocumentKind::find(QLatin1String(className));
    return kind ? QLatin1String(kind->name) : QString();
}

} // namespace

QList<XmlElementRegistry::Entry> XmlElementRegistry::entries()
{
    QList<Entry> result;
    for (const Registration& registration : registrations) {
        result.append({QLatin1String(registration.className), aliasOf(registration.className),
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
