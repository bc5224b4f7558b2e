#include "layout/TextLines.h"

#include "textsource/HexText.h"

#include <QRegularExpression>

namespace type {

QStringList textLines(const std::string& hexText) {
    const QString text = hexTokensToQString(hexText);
    if (text.isEmpty())
        return {};
    static const QRegularExpression lineBreak(QStringLiteral("\n|\r\n|\r"));
    return text.split(lineBreak, Qt::KeepEmptyParts);
}

} // namespace type
