#pragma once

#include "XmlComposite.h"
#include "XmlGridResultType.h"
#include "XmlInterlinkResultType.h"
#include "XmlOwned.h"
#include "XmlResultObjectType.h"

namespace KelXml {

/// A result that the server sends on its own: one grid result, interlink
/// result or result object.
/// `<Interactive><GridResult type="CEP">...</GridResult></Interactive>`.
/// No version, no attributes and no position check. The result object travels
/// under "Station", whichever object it holds. Reading takes exactly one
/// child, read into a fresh object; the other kinds stay as they were.
/// \ingroup responses
class KELXML_EXPORT XmlInteractRespType : public XmlComposite
{
public:
    XmlInteractRespType();

    bool hasGridResult() const { return bool(m_gridResult); }
    /// Null when absent; setGridResult() stores a copy.
    const XmlGridResultType* gridResult() const { return m_gridResult.get(); }
    void setGridResult(const XmlGridResultType& result) { m_gridResult.assign(result); }
    bool hasInterlinkResult() const { return bool(m_interlinkResult); }
    /// Null when absent; setInterlinkResult() stores a copy.
    const XmlInterlinkResultType* interlinkResult() const { return m_interlinkResult.get(); }
    void setInterlinkResult(const XmlInterlinkResultType& result)
    {
        m_interlinkResult.assign(result);
    }
    bool hasResult() const { return bool(m_result); }
    /// Null when absent; setResult() stores a copy.
    const XmlResultObjectType* result() const { return m_result.get(); }
    void setResult(const XmlResultObjectType& result) { m_result.assign(result); }

private:
    static const XmlLayout& layout();

    XmlOwnedPtr<XmlGridResultType> m_gridResult;
    XmlOwnedPtr<XmlInterlinkResultType> m_interlinkResult;
    XmlOwnedPtr<XmlResultObjectType> m_result;
};

} // namespace KelXml
