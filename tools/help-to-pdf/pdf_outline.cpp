#include "pdf_outline.h"

#include <QByteArray>
#include <QFile>
#include <QRegularExpression>

namespace help {
namespace {

struct Reference {
  int object = 0;
  bool ok = false;
};

Reference FindReference(const QByteArray& text, const char* key) {
  const QRegularExpression pattern(
      QStringLiteral("/%1\\s+(\\d+)\\s+0\\s+R").arg(QLatin1String(key)));
  const QRegularExpressionMatch match = pattern.match(QString::fromLatin1(text));
  return {match.captured(1).toInt(), match.hasMatch()};
}

// The text of an object between "obj" and "endobj"; empty when there is none.
QByteArray ObjectText(const QByteArray& pdf, int object) {
  const QByteArray head = '\n' + QByteArray::number(object) + " 0 obj";
  const qsizetype start = pdf.indexOf(head);
  if (start < 0) return {};
  const qsizetype end = pdf.indexOf("endobj", start);
  if (end < 0) return {};
  return pdf.mid(start + head.size(), end - start - head.size()).trimmed();
}

// A text string: UTF-16 behind its byte-order mark, in hexadecimal.
QByteArray TextString(const QString& text) {
  QByteArray bytes("\xfe\xff", 2);
  for (const QChar c : text) {
    bytes += static_cast<char>(c.unicode() >> 8);
    bytes += static_cast<char>(c.unicode() & 0xff);
  }
  return '<' + bytes.toHex() + '>';
}

// The tree of the entries: for each the indices of its family, -1 for none.
struct Node {
  int parent = -1;
  int previous = -1;
  int next = -1;
  int first = -1;
  int last = -1;
};

QList<Node> TreeOf(const QList<OutlineEntry>& entries, Node* root) {
  QList<Node> nodes(entries.size());
  for (int i = 0; i < entries.size(); ++i) {
    int parent = i - 1;
    while (parent >= 0 && entries[parent].level >= entries[i].level) parent = nodes[parent].parent;
    nodes[i].parent = parent;
    Node& above = parent < 0 ? *root : nodes[parent];
    if (above.first < 0) {
      above.first = i;
    } else {
      nodes[i].previous = above.last;
      nodes[above.last].next = i;
    }
    above.last = i;
  }
  return nodes;
}

}  // namespace

bool AddOutline(const QString& path, const QList<OutlineEntry>& entries) {
  QFile file(path);
  if (entries.isEmpty() || !file.open(QIODevice::ReadOnly)) return false;
  QByteArray pdf = file.readAll();
  file.close();

  const qsizetype trailer_at = pdf.lastIndexOf("trailer");
  const qsizetype start_at = pdf.lastIndexOf("startxref");
  if (trailer_at < 0 || start_at < trailer_at) return false;
  const QByteArray trailer = pdf.mid(trailer_at, start_at - trailer_at);
  const qint64 previous_table = pdf.mid(start_at + 9).trimmed().split('\n').front().toLongLong();
  const QRegularExpressionMatch size =
      QRegularExpression(QStringLiteral("/Size\\s+(\\d+)")).match(QString::fromLatin1(trailer));
  const Reference root = FindReference(trailer, "Root");
  if (!size.hasMatch() || !root.ok) return false;
  QByteArray catalog = ObjectText(pdf, root.object);
  const Reference pages = FindReference(catalog, "Pages");
  if (!pages.ok || !catalog.startsWith("<<") || !catalog.endsWith(">>")) return false;

  const QString page_tree = QString::fromLatin1(ObjectText(pdf, pages.object));
  const QString kids = page_tree.section(QLatin1String("/Kids"), 1).section(QLatin1Char(']'), 0, 0);
  QList<int> page_objects;
  auto matches = QRegularExpression(QStringLiteral("(\\d+)\\s+0\\s+R")).globalMatch(kids);
  while (matches.hasNext()) page_objects << matches.next().captured(1).toInt();

  Node top;
  const QList<Node> nodes = TreeOf(entries, &top);
  const int outline_object = size.captured(1).toInt();
  const auto object_of = [&](int entry) { return outline_object + 1 + entry; };
  const auto link = [&](const char* key, int entry) {
    return entry < 0 ? QByteArray()
                     : " /" + QByteArray(key) + ' ' + QByteArray::number(object_of(entry)) + " 0 R";
  };

  QList<QPair<int, qint64>> offsets;
  const auto append = [&](int object, const QByteArray& body) {
    offsets << qMakePair(object, static_cast<qint64>(pdf.size()));
    pdf += QByteArray::number(object) + " 0 obj\n" + body + "\nendobj\n";
  };
  if (!pdf.endsWith('\n')) pdf += '\n';
  catalog.chop(2);
  append(root.object, catalog + "/Outlines " + QByteArray::number(outline_object) +
                          " 0 R /PageMode /UseOutlines\n>>");
  append(outline_object,
         "<< /Type /Outlines" + link("First", top.first) + link("Last", top.last) + " >>");
  for (int i = 0; i < entries.size(); ++i) {
    if (entries[i].page < 0 || entries[i].page >= page_objects.size()) return false;
    const Node& node = nodes[i];
    const int parent = node.parent < 0 ? outline_object : object_of(node.parent);
    append(object_of(i), "<< /Title " + TextString(entries[i].title) + " /Parent " +
                             QByteArray::number(parent) + " 0 R" + link("Prev", node.previous) +
                             link("Next", node.next) + link("First", node.first) +
                             link("Last", node.last) + " /Dest [" +
                             QByteArray::number(page_objects[entries[i].page]) + " 0 R /XYZ 0 " +
                             QByteArray::number(entries[i].top, 'f', 1) + " 0] >>");
  }
  const qsizetype table_at = pdf.size();
  pdf += "xref\n";
  for (const auto& [object, offset] : offsets) {
    pdf += QByteArray::number(object) + " 1\n" +
           QByteArray::number(offset).rightJustified(10, '0') + " 00000 n \n";
  }
  QByteArray dictionary = trailer.mid(7).trimmed();
  dictionary.chop(2);
  dictionary.replace("/Size " + size.captured(1).toLatin1(),
                     "/Size " + QByteArray::number(object_of(static_cast<int>(entries.size()))));
  pdf += "trailer\n" + dictionary + "/Prev " + QByteArray::number(previous_table) +
         "\n>>\nstartxref\n" + QByteArray::number(table_at) + "\n%%EOF\n";

  return file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size();
}

}  // namespace help
