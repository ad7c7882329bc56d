#include "ui/widgets/date_services.h"

#include <QDate>
#include <QLocale>

#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

QString SystemFormat() {
  const QString form = QLocale::system().dateFormat(QLocale::ShortFormat);
  return ToQt(WidenedDateFormat(FromQt(form)));
}

}  // namespace

std::string WidenedDateFormat(std::string_view short_form) {
  const QString form = ToQt(short_form);
  QString order;
  for (const QChar c : form) {
    if (QStringLiteral("dMy").contains(c) && !order.contains(c)) order += c;
  }
  if (order.size() != 3) order = QStringLiteral("yMd");
  QChar separator = QLatin1Char('-');
  for (const QChar c : {QLatin1Char('/'), QLatin1Char('-'), QLatin1Char('.')}) {
    if (form.contains(c)) separator = c;
  }
  QString widened;
  for (const QChar c : order) {
    if (!widened.isEmpty()) widened += separator;
    widened += c == QLatin1Char('y') ? QStringLiteral("yyyy") : QString(2, c);
  }
  return FromQt(widened);
}

std::string LocaleDateServices::ShortToday() const {
  return FromQt(QDate::currentDate().toString(SystemFormat()));
}

std::string LocaleDateServices::AbbreviatedWeekday(std::string_view date_text) const {
  const QDate date = QDate::fromString(ToQt(date_text), SystemFormat());
  // In English, whatever the locale: the gate's table does not hold every language.
  return date.isValid() ? FromQt(QLocale::c().dayName(date.dayOfWeek(), QLocale::ShortFormat)) : "";
}

}  // namespace skerrow
