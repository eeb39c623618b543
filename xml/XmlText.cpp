#include "XmlText.h"

#include <QHash>

#include <array>
#include <mutex>

namespace KelXml {

namespace {

constexpr int shared = -1;
// Texts up to this length may become the program's shared copy. The table is
// bounded, so that documents full of distinct words cannot make it grow:
// once it is full, new texts get nodes of their own.
constexpr qsizetype longestShared = 16;
constexpr int mostShared = 256;
constexpr size_t probes = 8;

} // namespace

XmlText::Node* XmlText::nodeFor(QStringView text, const QString* whole)
{
    static Node* const null = new Node{{shared}, QString()};
    if (text.isNull())
        return null;
    if (text.size() <= longestShared) {
        // Open addressing; a filled slot never changes, so lookups need no lock.
        static std::array<std::atomic<Node*>, 2 * mostShared> table{};
        static std::mutex mutex;
        static int used = 0;
        const size_t hash = qHash(text);
        for (size_t probe = 0; probe < probes; ++probe) {
            std::atomic<Node*>& slot = table[(hash + probe) % table.size()];
            Node* node = slot.load(std::memory_order_acquire);
            if (!node) {
                const std::lock_guard<std::mutex> lock(mutex);
                node = slot.load(std::memory_order_relaxed);
                if (!node) {
                    if (used == mostShared)
                        break;
                    ++used;
                    node = new Node{{shared}, whole ? *whole : text.toString()};
                    slot.store(node, std::memory_order_release);
                    return node;
                }
            }
            if (XmlKit::sameName(node->text, text))
                return node;
        }
    }
    return new Node{{1}, whole ? *whole : text.toString()};
}

XmlText::XmlText() noexcept
    : m_node(nodeFor(QStringView(), nullptr))
{}

XmlText::XmlText(const QString& text)
    : m_node(nodeFor(text, &text))
{}

XmlText::XmlText(XmlText&& other) noexcept
    : XmlText(static_cast<const XmlText&>(other))
{}

XmlText& XmlText::operator=(XmlText&& other) noexcept
{
    std::swap(m_node, other.m_node);
    return *this;
}

XmlText& XmlText::operator=(const QString& text)
{
    Node* node = nodeFor(text, &text);
    release();
    m_node = node;
    return *this;
}

void XmlText::assign(QStringView text)
{
    // Reading mostly meets the text already held, such as the default unit.
    if (m_node->text.isNull() == text.isNull() && XmlKit::sameName(m_node->text, text))
        return;
    Node* node = nodeFor(text, nullptr);
    release();
    m_node = node;
}

void XmlText::clear() noexcept
{
    release();
    m_node = nodeFor(QStringView(), nullptr);
}

void XmlText::drop() noexcept
{
    if (m_node->refs.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete m_node;
}

} // namespace KelXml
