#include "svg/SvgReader.h"

#include "svg/SvgContentHandler.h"

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED
#include <QXmlInputSource>
#include <QXmlSimpleReader>

namespace type {

SvgReadResult readSvg(const QByteArray& document, const SvgReadSettings& settings) {
    SvgContentHandler handler(settings);
    QXmlSimpleReader reader;
    reader.setContentHandler(&handler);
    reader.setErrorHandler(&handler);
    QXmlInputSource source;
    source.setData(document);
    SvgReadResult result;
    if (!reader.parse(&source, false)) {
        result.status = handler.failure().value_or(SvgReadStatus::parseError);
        return result;
    }
    result.artwork = handler.takeArtwork();
    return result;
}

} // namespace type

QT_WARNING_POP
