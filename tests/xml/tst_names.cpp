#include "KelXmlTest.h"

#include <XmlNameAllMultiType.h>
#include <XmlNameAllType.h>
#include <XmlReferenceType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;
using KelXmlTest::located;

class TestNames : public QObject
{
    Q_OBJECT

private slots:
    // Bounds and their messages (a full stop on one of four, a lower-case class
    // name in the reference's report), and the text taken as it stands:
    // untrimmed, the last piece wins, comments and processing instructions pass.
    void textElements_data()
    {
        QTest::addColumn<QString>("xml"); // <N> holds a name, <R> a reference
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message"); // empty when valid
        const QString n128(128, 'n'), r50(50, 'r'), none;
        QTest::newRow("name empty") << "<N></N>" << none << "Object name too short (min. 1).";
        QTest::newRow("name 128") << "<N>" + n128 + "</N>" << n128 << none;
        QTest::newRow("name 129") << "<N>n" + n128 + "</N>" << 'n' + n128
                                  << "Object name too long (max. 128)";
        QTest::newRow("ref empty") << "<R/>" << none << "String too short (min. 1)";
        QTest::newRow("ref 51") << "<R>r" + r50 + "</R>" << 'r' + r50
                                << "String too long (max. 50)";
        QTest::newRow("last text") << "<N>A<!--c--><?pi?> B \n</N>" << QString(" B \n") << none;
    }
    void textElements()
    {
        QFETCH(QString, xml);
        QFETCH(QString, text);
        QFETCH(QString, message);
        XmlObjNameType name;
        XmlReferenceType ref;
        const bool isRef = xml.startsWith("<R");
        IXmlElement& element = isRef ? static_cast<IXmlElement&>(ref) : name;
        QCOMPARE(KelXmlTest::read(element, xml), QString());
        QCOMPARE(element.isValid(), message.isEmpty());
        const QString classname = isRef ? "XmlreferenceType" : "XmlObjNameType";
        QCOMPARE(element.syntaxError(), message.isEmpty() ? message : block(classname, {message}));
        QCOMPARE(KelXmlTest::write(element, "X"), "<X>" + text + "</X>");
    }

    // The single selection tolerates <Reference> but not a second name; the
    // multiple one the other way round. Both need exactly one choice before
    // their end tag; only a completed read initializes them.
    void selectionReading_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<int>("column");         // of the error, where there is one
        QTest::addColumn<QString>("oneError");   // as read by a single selection
        QTest::addColumn<QString>("multiError"); // as read by a multiple selection
        QTest::addColumn<QString>("names");      // held by the multiple selection
        const QString name = "Unexpected element \"Name\"", all = "Unexpected element \"All\"",
                      ref = "Unexpected element \"Reference\"",
                      end = "Unexpected token \"EndElement\"", none;
        QTest::newRow("all") << "<S> <All>x</All> </S>" << 0 << none << none << none;
        QTest::newRow("names") << "<S><Name>A</Name>x<Name>B</Name></S>" << 24 << name << none
                               << "A,B";
        QTest::newRow("ref") << "<S><Name>A</Name><Reference/></S>" << 29 << none << ref << "A";
        QTest::newRow("empty") << "<S></S>" << 7 << end << end << none;
        QTest::newRow("name, all") << "<S><Name>A</Name><All/></S>" << 23 << all << all << "A";
    }
    void selectionReading()
    {
        QFETCH(QString, xml);
        QFETCH(int, column);
        QFETCH(QString, oneError);
        QFETCH(QString, multiError);
        QFETCH(QString, names);
        XmlNameAllType one;
        XmlNameAllMultiType multi;
        const auto error = [column](const char* cls, const QString& message) {
            return message.isEmpty() ? message : located(cls, 1, column, message);
        };
        QCOMPARE(KelXmlTest::read(one, xml), error("XmlNameAllType", oneError));
        QCOMPARE(KelXmlTest::read(multi, xml), error("XmlNameAllMultiType", multiError));
        QCOMPARE(one.all() ? QString() : one.objName()->objName(), names.section(',', 0, 0));
        QStringList held;
        for (const XmlObjNameType* name : multi.objNames())
            held << name->objName();
        QCOMPARE(held.join(','), names);
        QCOMPARE(one.isValid(), oneError.isEmpty());
        QCOMPARE(multi.isValid(), multiError.isEmpty());
    }

    // A fresh selection says all() yet is uninitialized; the setters
    // keep copies; names read are appended to those held, a read <All/> drops them.
    void selectionState()
    {
        XmlNameAllType one;
        XmlNameAllMultiType multi;
        QVERIFY(one.all() && multi.all());
        QCOMPARE(one.syntaxError(), block("XmlNameAllType", {"Uninitialized."}));
        XmlObjNameType name;
        name.setObjName("X");
        one.setObjName(name);
        multi.setObjNames({&name});
        name.setObjName("changed");
        QCOMPARE(KelXmlTest::read(multi, "<S><Name>A</Name></S>"), QString());
        QCOMPARE(KelXmlTest::write(one, "S") + KelXmlTest::write(multi, "S"),
                 QString("<S><Name>X</Name></S><S><Name>X</Name><Name>A</Name></S>"));
        QCOMPARE(KelXmlTest::read(multi, "<S><All/></S>"), QString());
        QCOMPARE(KelXmlTest::write(multi, "S"), QString("<S><All/></S>"));
    }
};

QTEST_GUILESS_MAIN(TestNames)
#include "tst_names.moc"
