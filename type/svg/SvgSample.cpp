#include "svg/SvgSample.h"

namespace type {

QByteArray sampleArtwork() {
    return QByteArrayLiteral(
        R"svg(<?xml version="1.0" encoding="utf-8"?>
<!-- Generator: Adobe Illustrator 21.0.0, SVG Export Plug-In -->
<svg version="1.1" baseProfile="basic" xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" xmlns:a="http://ns.adobe.com/AdobeSVGViewerExtensions/3.0/" x="0px" y="0px" width="38px" height="24px" viewBox="0 0 38 24" enable-background="new 0 0 38 24" xml:space="preserve">
<defs>
</defs>
<polygon fill="#13B713" points="12,5 7,5 7,0 5,0 5,5 0,5 0,7 5,7 5,12 7,12 7,7 12,7 "/>
<rect x="14" y="1" fill="#757575" width="4" height="2"/>
<rect x="21" y="1" fill="#757575" width="4" height="2"/>
<rect x="28" y="1" fill="#757575" width="4" height="2"/>
<rect x="14" y="22" fill="#757575" width="4" height="2"/>
<rect x="7" y="22" fill="#757575" width="4" height="2"/>
<rect x="21" y="22" fill="#757575" width="4" height="2"/>
<rect x="28" y="22" fill="#757575" width="4" height="2"/>
<polygon fill="#757575" points="35,1 38,1 38,4 36,4 36,3 35,3 "/>
<polygon fill="#757575" points="38,21 38,24 35,24 35,22 36,22 36,21 "/>
<polygon fill="#757575" points="4,24 1,24 1,21 3,21 3,22 4,22 "/>
<rect x="36" y="7" fill="#757575" width="2" height="4"/>
<rect x="36" y="14" fill="#757575" width="2" height="4"/>
<rect x="1" y="14" fill="#757575" width="2" height="4"/>
</svg>
)svg");
}

} // namespace type
