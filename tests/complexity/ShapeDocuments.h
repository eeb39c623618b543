#pragma once

// Worst-case shapes of every kind of document: the same content repeated,
// vertices in the order that costs most, the widest lists, the deepest
// nesting, documents whose every element is invalid. The complexity test
// reads each at two sizes and compares what they cost; the same documents
// are starting inputs of the fuzz targets.

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace KelXmlShapes {

struct Shape
{
    QString name;      // "command-polygon-descending"
    QString className; // the registry class (or alias) the document is read as
    QString group;     // its test: command, response, scenario, lists; extra: none
    int units;         // the repeated unit's count at the smaller size N
    QStringList tools; // the tool commands run on it besides the library
    QString about;     // one line: what the document holds
    // The document with `units` of the repeated unit. The same bytes on every
    // run: shuffled orders come from a generator started the same way each time.
    QByteArray (*generate)(int units);
};

const std::vector<Shape>& shapes();
// The shape of that name; null when there is none.
const Shape* find(const QString& name);

// The elements of a document (its start tags and empty-element tags).
int elementCount(const QByteArray& document);

} // namespace KelXmlShapes
