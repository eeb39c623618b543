// kelxml kml: a document's geographic objects as KML 2.2, for the globe
// viewers and GIS tools planners open maps in: a folder per kind, a
// placemark per object with the properties the GeoJSON has as ExtendedData,
// a style per kind in the kind's colour. Positions are longitude,latitude in
// WGS 84; an area is a polygon whose ring is closed and runs
// counter-clockwise, an interlink a line. A KMZ holds the KML as "doc.kml",
// first, and each placed picture under "files/", shown as a ground overlay.

#include "GeoCommands.h"

#include <QFileInfo>
#include <QIODevice>
#include <QXmlStreamWriter>

#include <zip.h>

#include <cmath>
#include <memory>

using KelXml::XmlGeoFeature;
using Position = XmlGeoFeature::Position;

namespace {

QString styleId(XmlGeoFeature::Kind kind)
{
    return QStringLiteral("kind-") + XmlGeoFeature::kindName(kind);
}

// KML gives a colour as aabbggrr in hexadecimal, the reverse of "#rrggbb".
QString kmlColour(XmlGeoFeature::Kind kind, const char* alpha)
{
    const QString rgb = XmlGeoFeature::kindColour(kind);
    return QLatin1String(alpha) + rgb.mid(5, 2) + rgb.mid(3, 2) + rgb.mid(1, 2);
}

bool finite(const Position& position)
{
    return std::isfinite(position.longitude) && std::isfinite(position.latitude);
}

QString coordinates(const QVector<Position>& positions)
{
    QStringList list;
    list.reserve(positions.size());
    for (const Position& position : positions) {
        list.append(QString::number(position.longitude, 'g', 17) + QLatin1Char(',') +
                    QString::number(position.latitude, 'g', 17));
    }
    return list.join(QLatin1Char(' '));
}

void writeStyle(QXmlStreamWriter& kml, XmlGeoFeature::Kind kind)
{
    kml.writeStartElement(QStringLiteral("Style"));
    kml.writeAttribute(QStringLiteral("id"), styleId(kind));
    kml.writeStartElement(QStringLiteral("IconStyle"));
    kml.writeTextElement(QStringLiteral("color"), kmlColour(kind, "ff"));
    kml.writeEndElement();
    kml.writeStartElement(QStringLiteral("LineStyle"));
    kml.writeTextElement(QStringLiteral("color"), kmlColour(kind, "ff"));
    kml.writeTextElement(QStringLiteral("width"), QStringLiteral("2"));
    kml.writeEndElement();
    kml.writeStartElement(QStringLiteral("PolyStyle"));
    kml.writeTextElement(QStringLiteral("color"), kmlColour(kind, "40"));
    kml.writeEndElement();
    kml.writeEndElement();
}

// The geometry of a feature; nothing for one without a usable position.
void writeGeometry(QXmlStreamWriter& kml, const XmlGeoFeature& feature)
{
    if (feature.shape == XmlGeoFeature::Point) {
        if (feature.positions.size() != 1 || !finite(feature.positions.first()))
            return;
        kml.writeStartElement(QStringLiteral("Point"));
        kml.writeTextElement(QStringLiteral("coordinates"), coordinates(feature.positions));
        kml.writeEndElement();
        return;
    }
    if (feature.shape == XmlGeoFeature::Line) {
        if (feature.positions.size() != 2 || !finite(feature.positions[0]) ||
            !finite(feature.positions[1]))
            return;
        kml.writeStartElement(QStringLiteral("LineString"));
        kml.writeTextElement(QStringLiteral("tessellate"), QStringLiteral("1"));
        kml.writeTextElement(QStringLiteral("coordinates"), coordinates(feature.positions));
        kml.writeEndElement();
        return;
    }
    const QVector<Position> ring = feature.ring();
    if (ring.isEmpty())
        return;
    kml.writeStartElement(QStringLiteral("Polygon"));
    kml.writeStartElement(QStringLiteral("outerBoundaryIs"));
    kml.writeStartElement(QStringLiteral("LinearRing"));
    kml.writeTextElement(QStringLiteral("coordinates"), coordinates(ring));
    kml.writeEndElement();
    kml.writeEndElement();
    kml.writeEndElement();
}

void writeData(QXmlStreamWriter& kml, const QString& name, const QString& value)
{
    kml.writeStartElement(QStringLiteral("Data"));
    kml.writeAttribute(QStringLiteral("name"), name);
    kml.writeTextElement(QStringLiteral("value"), value);
    kml.writeEndElement();
}

QString text(const QVariant& value)
{
    if (value.userType() == QMetaType::Bool)
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    if (value.userType() == QMetaType::Double)
        return QString::number(value.toDouble(), 'g', 17);
    return value.toString();
}

void writePlacemark(QXmlStreamWriter& kml, const XmlGeoFeature& feature)
{
    kml.writeStartElement(QStringLiteral("Placemark"));
    kml.writeTextElement(QStringLiteral("name"), feature.name);
    QString description = XmlGeoFeature::kindName(feature.kind);
    if (!feature.valid)
        description += QStringLiteral("\ninvalid: ") + feature.problem;
    const QString resultText = feature.properties.value(QStringLiteral("text")).toString();
    if (!resultText.isEmpty())
        description += QLatin1Char('\n') + resultText;
    kml.writeTextElement(QStringLiteral("description"), description);
    kml.writeTextElement(QStringLiteral("styleUrl"), QLatin1Char('#') + styleId(feature.kind));
    kml.writeStartElement(QStringLiteral("ExtendedData"));
    writeData(kml, QStringLiteral("kind"), XmlGeoFeature::kindName(feature.kind));
    writeData(kml, QStringLiteral("name"), feature.name);
    writeData(kml, QStringLiteral("valid"), text(feature.valid));
    if (!feature.valid)
        writeData(kml, QStringLiteral("problem"), feature.problem);
    for (auto it = feature.properties.begin(); it != feature.properties.end(); ++it)
        writeData(kml, it.key(), text(it.value()));
    kml.writeEndElement();
    writeGeometry(kml, feature);
    kml.writeEndElement();
}

void writeOverlay(QXmlStreamWriter& kml, const PlacedPicture& picture)
{
    const QString name = QFileInfo(picture.file).fileName();
    kml.writeStartElement(QStringLiteral("GroundOverlay"));
    kml.writeTextElement(QStringLiteral("name"), name);
    kml.writeStartElement(QStringLiteral("Icon"));
    kml.writeTextElement(QStringLiteral("href"), QStringLiteral("files/") + name);
    kml.writeEndElement();
    kml.writeStartElement(QStringLiteral("LatLonBox"));
    kml.writeTextElement(QStringLiteral("north"), QString::number(picture.north, 'g', 17));
    kml.writeTextElement(QStringLiteral("south"), QString::number(picture.south, 'g', 17));
    kml.writeTextElement(QStringLiteral("east"), QString::number(picture.east, 'g', 17));
    kml.writeTextElement(QStringLiteral("west"), QString::number(picture.west, 'g', 17));
    kml.writeEndElement();
    kml.writeEndElement();
}

struct ZipCloser
{
    void operator()(zip_t* archive) const { zip_discard(archive); }
};

} // namespace

bool writeKml(const MapDocument& document, QIODevice& device)
{
    QVector<XmlGeoFeature> byKind[XmlGeoFeature::kindCount];
    document.visit(
        [&byKind](const XmlGeoFeature& feature) { byKind[feature.kind].append(feature); });

    QXmlStreamWriter kml(&device);
    kml.setAutoFormatting(true);
    kml.setAutoFormattingIndent(1);
    kml.writeStartDocument();
    kml.writeStartElement(QStringLiteral("kml"));
    kml.writeDefaultNamespace(QStringLiteral("http://www.opengis.net/kml/2.2"));
    kml.writeStartElement(QStringLiteral("Document"));
    kml.writeTextElement(QStringLiteral("name"), document.title);
    for (int kind = 0; kind < XmlGeoFeature::kindCount; ++kind) {
        if (!byKind[kind].isEmpty())
            writeStyle(kml, XmlGeoFeature::Kind(kind));
    }
    for (int kind = 0; kind < XmlGeoFeature::kindCount; ++kind) {
        if (byKind[kind].isEmpty())
            continue;
        kml.writeStartElement(QStringLiteral("Folder"));
        kml.writeTextElement(QStringLiteral("name"),
                             XmlGeoFeature::kindName(XmlGeoFeature::Kind(kind)));
        for (const XmlGeoFeature& feature : std::as_const(byKind[kind]))
            writePlacemark(kml, feature);
        kml.writeEndElement();
    }
    for (const PlacedPicture& picture : document.pictures)
        writeOverlay(kml, picture);
    kml.writeEndElement();
    kml.writeEndElement();
    kml.writeEndDocument();
    return !kml.hasError();
}

QString writeKmz(const QString& file, const QByteArray& kml, const QVector<PlacedPicture>& pictures)
{
    int error = 0;
    std::unique_ptr<zip_t, ZipCloser> archive(
        zip_open(QFile::encodeName(file).constData(), ZIP_CREATE | ZIP_TRUNCATE, &error));
    if (!archive)
        return QStringLiteral("cannot create the archive (libzip error %1)").arg(error);
    const auto failed = [&archive]() { return QString::fromUtf8(zip_strerror(archive.get())); };
    // The archive reads the buffer when it is closed, so kml outlives it.
    zip_source_t* source =
        zip_source_buffer(archive.get(), kml.constData(), zip_uint64_t(kml.size()), 0);
    if (!source || zip_file_add(archive.get(), "doc.kml", source, ZIP_FL_ENC_UTF_8) < 0) {
        zip_source_free(source);
        return failed();
    }
    for (const PlacedPicture& picture : pictures) {
        const QByteArray name =
            QStringLiteral("files/%1").arg(QFileInfo(picture.file).fileName()).toUtf8();
        source = zip_source_file(archive.get(), QFile::encodeName(picture.file).constData(), 0, -1);
        if (!source || zip_file_add(archive.get(), name.constData(), source,
                                    ZIP_FL_ENC_UTF_8 | ZIP_FL_OVERWRITE) < 0) {
            zip_source_free(source);
            return failed();
        }
    }
    if (zip_close(archive.get()) < 0)
        return failed();
    archive.release(); // closed, and freed by zip_close
    return QString();
}
