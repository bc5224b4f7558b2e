#pragma once

#include "svg/SvgReader.h"
#include "svg/SvgStyle.h"
#include "svg/SvgTransform.h"

#include <QtGlobal>

// Qt's SAX classes are deprecated in favour of its stream reader, but the
// SAX reader is the one whose handling of odd documents the artwork in
// existing scenes was made against.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED
#include <QXmlDefaultHandler>

namespace type {

// Collects the artwork while Qt's SAX reader walks the document. An element
// the reader does not know ("defs", "title"...) is skipped on its own; the
// shapes inside it are still read.
class SvgContentHandler : public QXmlDefaultHandler {
public:
    explicit SvgContentHandler(const SvgReadSettings& settings);

    bool startElement(const QString& namespaceUri, const QString& localName, const QString& qualifiedName,
                      const QXmlAttributes& attributes) override;
    bool endElement(const QString& namespaceUri, const QString& localName,
                    const QString& qualifiedName) override;
    bool characters(const QString& text) override;
    QString errorString() const override;

    // Why the handler stopped the reader, when it did.
    std::optional<SvgReadStatus> failure() const { return m_failure; }
    SvgArtwork takeArtwork() { return std::move(m_artwork); }

private:
    // What an element passes on to the shapes inside it.
    struct Inherited {
        Affine2 transform;
        bool fillGiven = false;
        bool noFill = false;
        std::optional<Colour> fill;
        bool hidden = false;
    };

    struct ElementState {
        Inherited inherited;
        std::string id;
    };

    const Inherited& parent() const;
    ElementState stateOf(const QXmlAttributes& attributes);
    void applyCommon(const std::string& name, const std::string& value, ElementState& state);
    void checkPresentation(std::string_view name, std::string_view value);
    void readSvgElement(const QXmlAttributes& attributes);
    bool readShape(const std::string& element, const QXmlAttributes& attributes);
    bool fail(SvgReadStatus status);
    std::optional<std::vector<Contour>> outlinesOf(const std::string& element,
                                                   const QXmlAttributes& attributes) const;

    SvgReadSettings m_settings;
    SvgArtwork m_artwork;
    std::vector<Inherited> m_groups;
    std::string m_styleSheet;
    bool m_inStyle = false;
    std::optional<SvgReadStatus> m_failure;
    std::size_t m_points = 0;
    int m_depth = 0;
};

} // namespace type

QT_WARNING_POP
