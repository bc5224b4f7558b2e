#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArgParser.h>

// The parsed arguments of a command, the form commands read their flags and
// objects from inside doIt:
//
//     ZStatus status;
//     ZArgDatabase args(syntax(), argList, &status);
//     if (!status) ...
class OZ_API ZArgDatabase : public ZArgParser {
public:
    using ZArgParser::ZArgParser;
};
