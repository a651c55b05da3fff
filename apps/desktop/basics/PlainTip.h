// Texts that are shown as they are.
#pragma once

#include <QString>
#include <QTextDocument>

namespace formwizard::apps::desktop {

// As a tool tip, also one that looks like tags.
inline QString PlainTip(const QString& text) {
  return Qt::mightBeRichText(text) ? "<span>" + text.toHtmlEscaped() + "</span>" : text;
}
// As that of a button, without an access key.
inline QString PlainCaption(QString text) { return text.replace('&', "&&"); }

}  // namespace formwizard::apps::desktop
