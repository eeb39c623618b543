#pragma once

#include "XmlComposite.h"
#include "XmlDBMListType.h"
#include "XmlDecibelListType.h"
#include "XmlDegreesListType.h"
#include "XmlDeviceCategoryType.h"
#include "XmlFreqListType.h"
#include "XmlObjNameType.h"
#include "XmlOwned.h"

namespace KelXml {

/// One device of a signal chain: its category, name and frequencies, and the
/// tables indexed by those frequencies.
/// `<Device version="1.0"><DeviceCategory/><Name/><Frequencies/>tables</Device>`.
///
/// Reading accepts only five sets of tables, in their own order (KFactors
/// last in the four-table sets), while writing puts KFactors right after
/// Noises; a four-table device therefore does not read back.
/// \ingroup scenario
class KELXML_EXPORT XmlDeviceType : public XmlVersionedComposite
{
public:
    XmlDeviceType();

    const XmlDeviceCategoryType* category() const { return &m_category; }
    void setCategory(const XmlDeviceCategoryType& category) { m_category = category; }
    const XmlObjNameType* objName() const { return &m_objName; }
    void setObjName(const XmlObjNameType& name) { m_objName = name; }
    /// The frequencies by which the tables are indexed.
    const XmlFreqListType* frequencyList() const { return &m_frequencies; }
    void setFrequencyList(const XmlFreqListType& frequencies) { m_frequencies = frequencies; }

    bool hasNoise() const { return bool(m_noises); }
    /// Noise figures in dB, one per frequency; null when absent. setNoiseList()
    /// stores a copy.
    const XmlDecibelListType* noiseList() const { return m_noises.get(); }
    void setNoiseList(const XmlDecibelListType& noises) { m_noises.assign(noises); }
    bool hasKfactor() const { return bool(m_kFactors); }
    /// K-factors in dB, one per frequency; null when absent. setKfactorList()
    /// stores a copy.
    const XmlDecibelListType* kFactorList() const { return m_kFactors.get(); }
    void setKfactorList(const XmlDecibelListType& kFactors) { m_kFactors.assign(kFactors); }
    bool hasAttenuation() const { return bool(m_attenuations); }
    /// Attenuations in dB, one per frequency; null when absent.
    /// setAttenuationList() stores a copy.
    const XmlDecibelListType* attenuationList() const { return m_attenuations.get(); }
    void setAttenuationList(const XmlDecibelListType& attenuations)
    {
        m_attenuations.assign(attenuations);
    }
    bool hasGain() const { return bool(m_gains); }
    /// Gains in dB, one per frequency; null when absent. setGainList() stores a
    /// copy.
    const XmlDecibelListType* gainList() const { return m_gains.get(); }
    void setGainList(const XmlDecibelListType& gains) { m_gains.assign(gains); }
    bool hasAccuracy() const { return bool(m_degrees); }
    /// The direction-finding accuracies in degrees, one per frequency, written as
    /// `<Degrees>`; null when absent. setAccuracyList() stores a copy.
    const XmlDegreesListType* accuracyList() const { return m_degrees.get(); }
    void setAccuracyList(const XmlDegreesListType& degrees) { m_degrees.assign(degrees); }
    bool hasDBM() const { return bool(m_dbm); }
    /// Levels in dBm, one per frequency; null when absent. setDBMList() stores a
    /// copy.
    const XmlDBMListType* dbmList() const { return m_dbm.get(); }
    void setDBMList(const XmlDBMListType& dbm) { m_dbm.assign(dbm); }

private:
    static const XmlLayout& layout();

    XmlDeviceCategoryType m_category;
    XmlObjNameType m_objName;
    XmlFreqListType m_frequencies;
    XmlOwnedPtr<XmlDecibelListType> m_noises;
    XmlOwnedPtr<XmlDecibelListType> m_kFactors;
    XmlOwnedPtr<XmlDecibelListType> m_attenuations;
    XmlOwnedPtr<XmlDecibelListType> m_gains;
    XmlOwnedPtr<XmlDegreesListType> m_degrees;
    XmlOwnedPtr<XmlDBMListType> m_dbm;
};

} // namespace KelXml
