#pragma once

#include "IXmlElement.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace KelXml {

/// The element classes of the library by name, for programs that choose a
/// class at run time (such as the kelxml tool). The root class of each kind
/// of document also answers to the kind's name as its alias ("command" for
/// XmlCmdRoot, see XmlDocumentKind).
/// \ingroup framework
class KELXML_EXPORT XmlElementRegistry
{
public:
    /// One element class as the registry lists it.
    struct Entry
    {
        QString className;
        QString alias;   ///< empty when the class has none
        QString summary; ///< one line saying what the element holds
    };

    /// Every class, in the order of the vocabulary.
    static QList<Entry> entries();
    static QStringList classNames();
    /// The class that a class name or alias stands for; empty when unknown.
    static QString resolve(const QString& nameOrAlias);
    /// A new object of that class with its defaults; null when unknown.
    static std::unique_ptr<IXmlElement> create(const QString& nameOrAlias);
    /// A deep copy of an object of that class, made by the class's copy
    /// constructor; null when the class is unknown or the object is not one.
    static std::unique_ptr<IXmlElement> copy(const QString& nameOrAlias,
                                             const IXmlElement& element);
};

} // namespace KelXml
