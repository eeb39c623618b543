// kelxml worldfile: places a picture with a world file and an .aux.xml that
// names WGS 84, so that GIS tools show it on its extent.
//
// A world file gives the centre of the upper-left pixel, not its corner: the
// picture's edges lie half a pixel further out, and that is where the extent
// must fall.

#include "GeoCommands.h"

#include <QFileInfo>
#include <QImageReader>
#include <QSaveFile>

namespace {

// ".pgw" for ".png", ".jgw" for ".jpg" and ".jpeg", ".tfw" for ".tif": the
// first and last letters of the extension and a "w".
QString worldFileName(const QString& picture)
{
    const QFileInfo info(picture);
    QString suffix = info.suffix().toLower();
    if (suffix == QLatin1String("jpeg"))
        suffix = QStringLiteral("jpg");
    if (suffix == QLatin1String("tiff"))
        suffix = QStringLiteral("tif");
    const QString ending = suffix.size() >= 2
                               ? QString(suffix.front()) + suffix.back() + QLatin1Char('w')
                               : QStringLiteral("wld");
    const QString base = picture.left(picture.size() - info.suffix().size());
    return info.suffix().isEmpty() ? picture + QStringLiteral(".wld") : base + ending;
}

const char* const wgs84 =
    "GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257223563,"
    "AUTHORITY[\"EPSG\",\"7030\"]],AUTHORITY[\"EPSG\",\"6326\"]],PRIMEM[\"Greenwich\",0,"
    "AUTHORITY[\"EPSG\",\"8901\"]],UNIT[\"degree\",0.0174532925199433,"
    "AUTHORITY[\"EPSG\",\"9122\"]],AXIS[\"Latitude\",NORTH],AXIS[\"Longitude\",EAST],"
    "AUTHORITY[\"EPSG\",\"4326\"]]";

bool save(const QString& file, const QByteArray& content)
{
    QSaveFile output(file);
    return output.open(QIODevice::WriteOnly) && output.write(content) == content.size() &&
           output.commit();
}

QString number(double value)
{
    return QString::number(value, 'g', 17);
}

} // namespace

int writeWorldFile(const Invocation& invocation, const QVector<KelXml::XmlGeoFeature>& features)
{
    const QString& picture = invocation.files.first();
    PlacedPicture box;
    const QString problem = findExtent(invocation.parser.value(extentOption()), features, box);
    if (!problem.isEmpty())
        return usageError(problem);
    QImageReader reader(picture);
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty()) {
        err() << picture << ": error: cannot read the picture's size: " << reader.errorString()
              << "\n";
        return Unreadable;
    }
    const double xSize = (box.east - box.west) / size.width();
    const double ySize = (box.north - box.south) / size.height();
    // Pixel size in x, two rotation terms, pixel size in y (negative: rows
    // run southwards), then the centre of the upper-left pixel.
    const QString world =
        QStringList{number(xSize),  QStringLiteral("0"),          QStringLiteral("0"),
                    number(-ySize), number(box.west + xSize / 2), number(box.north - ySize / 2)}
            .join(QLatin1Char('\n')) +
        QLatin1Char('\n');
    // The axis mapping says the picture's x is longitude, the second axis of
    // the system's definition.
    const QString aux = QStringLiteral("<PAMDataset>\n  <SRS dataAxisToSRSAxisMapping=\"2,1\">") +
                        QString::fromLatin1(wgs84) + QStringLiteral("</SRS>\n</PAMDataset>\n");
    const QString worldFile = worldFileName(picture);
    const QString auxFile = picture + QStringLiteral(".aux.xml");
    for (const auto& [file, content] :
         {std::make_pair(worldFile, world), std::make_pair(auxFile, aux)}) {
        if (!save(file, content.toUtf8())) {
            err() << file << ": error: cannot write\n";
            return Unreadable;
        }
        out() << file << "\n";
    }
    return Valid;
}
