#pragma once

#include "XmlReadError.h"

#include <QByteArray>
#include <QIODevice>

#include <memory>

namespace KelXml {

/// The device that XmlDocumentReader stands between a document's source and
/// the QXmlStreamReader. Qt pulls the document from it in blocks; before
/// handing a block on, the device checks its raw bytes against the limits
/// (XmlReadLimits), for a DTD, NUL bytes, invalid UTF-8 and an encoding other
/// than UTF-8. The check carries its state from block to block, so that a
/// value, a tag or a UTF-8 sequence may span any number of blocks, and
/// counts lines and columns as it goes, so that a fault is located as if the
/// whole document had been checked at once. On the first fault the device
/// hands on nothing more: Qt sees the document end there, and fault() says
/// why.
///
/// The device never holds the document: from a byte array it hands on the
/// array's own bytes, from another device it holds one block and the few
/// bytes a check needs from the one before.
///
/// Internal to the library (exported for its tests).
class KELXML_EXPORT XmlScanDevice : public QIODevice
{
public:
    /// The bytes checked at a time before they are handed on.
    static constexpr qint64 defaultBlockSize = 64 * 1024;

    /// Reads the array. One larger than maxBytes is refused at once.
    XmlScanDevice(const QByteArray& document, const XmlReadLimits& limits,
                  qint64 blockSize = defaultBlockSize);
    /// Reads the source from its current position. A source that is not
    /// sequential and holds more than maxBytes is refused at once, without
    /// being read; from any other at most maxBytes + 1 bytes are taken,
    /// waiting up to 30 seconds for each next part.
    XmlScanDevice(QIODevice* source, const XmlReadLimits& limits,
                  qint64 blockSize = defaultBlockSize);
    ~XmlScanDevice() override;

    bool isSequential() const override { return true; }
    bool atEnd() const override;
    qint64 bytesAvailable() const override;

    /// The first fault found so far; null while there is none.
    const XmlReadError& fault() const;
    /// Checks the rest of the document without handing it on, up to its end
    /// or its first fault.
    void scanToEnd();
    /// True once the whole document was checked without a fault.
    bool finished() const;
    /// The 1-based line and column just after the document's last byte;
    /// 0, 0 until finished().
    qint64 endLine() const;
    qint64 endColumn() const;
    /// Bytes taken from the source (the array's size for an array).
    qint64 taken() const;
    /// The most bytes the device held at once in a buffer of its own (none
    /// for an array, whose bytes it hands on from the array).
    qint64 largestHeld() const;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    struct Private;
    std::unique_ptr<Private> m;
};

} // namespace KelXml
