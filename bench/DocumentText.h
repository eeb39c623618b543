#pragma once

#include <QByteArray>

#include <initializer_list>
#include <utility>
#include <vector>

// The elements of the vocabulary written as text, for the document generators
// of the benchmarks (BenchDocuments.cpp) and of the complexity test
// (tests/complexity/ShapeDocuments.cpp). How each element is laid out is
// written once here; a generator derives from DocumentText and chooses the
// numbers that object n carries, and the counts and orders of what repeats.
namespace KelXmlBench {

struct Position
{
    double longitude;
    double latitude;
};

// The order in which a polygon lists its vertex numbers.
enum class Order
{
    Ascending,
    Descending,
    Shuffled,
};

// The numbers 0 .. count-1 in the given order; shuffled by a fixed generator.
std::vector<int> vertexNumbers(int count, Order order);

QByteArray fixed(double value, int decimals);
QByteArray integer(qint64 value);
// "stem n".
QByteArray name(const char* stem, qint64 n);

// The numbers of object n, as the texts its elements hold.
struct Numbers
{
    QByteArray frequency;     // MHz, of a transmitter or a deployment area
    QByteArray power;         // W, of a transmitter
    QByteArray antennaHeight; // m, of a transmitter, a receiver or a deployment area
    QByteArray bandwidth;     // kHz
    QByteArray threshold;     // dBm, of a receiver
    QByteArray areaThreshold; // dBm, of a deployment area
    QByteArray areaPower;     // W, of a deployment area
    QByteArray aoiThreshold;  // dBm, of an area of interest
    QByteArray precision;     // degrees, of a direction finder
    QByteArray sinad;         // of a signal path
    const char* interlinkUnit;
    QByteArray interlinkFrequency;
    QByteArray interlinkPower;
    QByteArray interlinkThreshold;
    QByteArray interlinkHeight;
};

// One table of a device: its list element, member element and unit, and the
// first value and step of the numbers the benchmarks give it.
struct ValueTable
{
    const char* list;
    const char* member;
    const char* unit;
    double first;
    double step;

    ValueTable from(double start) const { return {list, member, unit, start, step}; }
};

extern const ValueTable frequencies;
extern const ValueTable noises;
extern const ValueTable degrees;
extern const ValueTable gains;
extern const ValueTable dbm;
extern const ValueTable kFactors;

// One calculation request: its kind, how many names its two selections list
// (0 for All) and its result grid (none when empty).
struct Calculation
{
    enum Kind
    {
        FindSites,            // selections: known emitters, deployment areas
        Cep,                  // direction finders, areas of interest
        DetectionProbability, // receivers and direction finders, areas of interest
        DfCoverage,           // direction finders, areas of interest
        InterlinkPlanning,    // the two stations named after the stems below
        BestSensor,           // receivers and direction finders, areas of interest
    };
    Kind kind;
    int first;
    int second;
    QByteArray grid;
    const char* firstStation;
    const char* secondStation;
};

// A stored result of a snapshot: its kind (0 possible sites, 1 CEP, whose area
// is a polygon, 2 detection probability, 3 direction-finding coverage), the
// stem of its name, its grid and its value range.
struct Result
{
    int kind;
    const char* stem;
    QByteArray grid;
    const char* unit;
    const char* minimum;
    const char* maximum;
};

class DocumentText
{
public:
    enum Layout
    {
        Indented, // after an XML declaration, two spaces a level, as the samples are
        Compact,  // nothing but the elements
    };
    explicit DocumentText(Layout layout);
    virtual ~DocumentText();
    DocumentText(const DocumentText&) = delete;
    DocumentText& operator=(const DocumentText&) = delete;

    void open(const char* tag, const QByteArray& attributes = QByteArray());
    void close(const char* tag);
    void leaf(const char* tag, const QByteArray& text);
    void leaf(const char* tag, const QByteArray& attributes, const QByteArray& text);
    void empty(const char* tag);
    qint64 size() const { return m_bytes.size(); }
    QByteArray take() { return std::move(m_bytes); }

    // While set, the elements written break rules of their classes: versions
    // "2.0", measurements of another unit and out of range, empty names and
    // references, positions off the globe, vertex numbers that repeat.
    void setInvalid(bool invalid) { m_invalid = invalid; }

    // "version=\"1.0\"", or "2.0" while invalid.
    QByteArray version() const;
    // A measurement: version, unit and number.
    void value(const char* tag, const char* unit, const QByteArray& number);
    // <Name>stem n</Name>.
    void objectName(const char* stem, qint64 n);
    // <tag>stem-n</tag>.
    void reference(const char* tag, const char* stem, qint64 n);
    void orderDef();
    void coordinates(Position position);
    void position(const char* tag, Position position);
    // A name selection: count names from "DF n" on, or All.
    void names(const char* tag, qint64 n, int count);
    void valueList(const ValueTable& table, int entries);
    // A key/length map of the given entries.
    void map(const char* tag, int entries);
    void device(const char* category, const char* stem, qint64 n, int entries,
                std::initializer_list<ValueTable> tables);
    // A create command: the object that write() writes, then the reference
    // "create-n".
    template <class Write>
    void createCommand(qint64 n, Write write)
    {
        open("Create");
        write();
        reference("Reference", "create", n);
        close("Create");
    }
    void administrative(qint64 n);
    void deleteEmitter(qint64 n);
    void propagationModel(const char* reference);
    void calculate(qint64 n, const Calculation& calculation);
    void pair(qint64 n);

    // Object n, with the numbers and places that the generator gives it.
    void areaRect(qint64 n);
    void areaPolygon(qint64 n, int vertices, Order order);
    void deploymentArea(const char* tag, qint64 n);
    void aoi(const char* tag, qint64 n, int vertices, Order order);
    void emitter(const char* tag, qint64 n);
    void receiver(const char* tag, qint64 n, bool withInterlink);
    void df(const char* tag, qint64 n);
    void signalPath(const char* tag, qint64 n, int devices, int maps);
    void station(qint64 n, int devices, int maps);
    void resultRecord(qint64 n, const Result& result, int vertices, Order order);

protected:
    virtual Numbers numbers(qint64 n) const = 0;
    // Where placed object n stands.
    virtual Position place(qint64 n) const = 0;
    // The upper left and lower right corners of rectangle n.
    virtual std::pair<Position, Position> corners(qint64 n) const = 0;
    // The centre of the circle that the vertices of polygon n lie on.
    virtual Position centre(qint64 n) const = 0;
    // Entry i of a device's table.
    virtual QByteArray tableValue(const ValueTable& table, int i) const = 0;
    // The device n of a signal path.
    virtual void pathDevice(qint64 n) = 0;

private:
    void txParameter(const Numbers& numbers);
    void rxParameter(const Numbers& numbers);
    void interlink(const Numbers& numbers);
    void indent();
    void endLine();

    QByteArray m_bytes;
    bool m_indented;
    int m_depth = 0;
    bool m_invalid = false;
};

} // namespace KelXmlBench
