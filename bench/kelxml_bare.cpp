// The bare process of the whole-process rows: a QFile read by
// QXmlStreamReader::readNext() and nothing else, the least any program that
// reads the file with Qt pays.
//
//   kelxml_bare FILE     exit 0 when the file is well-formed, 1 when not, 2 when it cannot be
//   opened

#include <QFile>
#include <QXmlStreamReader>

int main(int argc, char* argv[])
{
    if (argc != 2)
        return 64;
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QIODevice::ReadOnly))
        return 2;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? 1 : 0;
}
