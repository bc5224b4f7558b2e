#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnBase.h>
#include <OpenZyvo/ZPxNode.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZSyntax.h>
#include <OpenZyvo/ZTypeId.h>

using ZCreatorFunction = void* (*)();
using ZInitializeFunction = ZStatus (*)();
using ZCreateSyntaxFunction = ZSyntax (*)();

// The function set a plug-in registers its node types, commands, contexts and
// strings with. The runtime hands the plug-in's ZObject to initializePlugin and
// uninitializePlugin; everything registered through it belongs to that
// plug-in, and whatever of it is left when the plug-in unloads is removed
// with it (before its library is closed).
class OZ_API ZFnPlugin : public ZFnBase {
public:
    ZFnPlugin() = default;
    // `vendor` and `version` describe the plug-in (the placeholder "Unknown"
    // leaves what an earlier function set recorded). `requiredApiVersion` is
    // "Any" or the lowest API version the plug-in can use (as a number, see
    // ZApiVersion.h); against an older runtime the function set is left empty
    // and `status` fails.
    explicit ZFnPlugin(const ZObject& plugin, const char* vendor = "Unknown", const char* version = "Unknown",
                       const char* requiredApiVersion = "Any", ZStatus* status = nullptr);

    ZFn::Type type() const override { return ZFn::kPlugin; }

    // The plug-in's name: its library's file name without the extension.
    ZString name(ZStatus* status = nullptr) const;
    ZString vendor(ZStatus* status = nullptr) const;
    ZString version(ZStatus* status = nullptr) const;
    // The API version the library was built against, from its ZApiVersion.
    ZString apiVersion(ZStatus* status = nullptr) const;
    // The folder the plug-in's library was loaded from.
    ZString loadPath(ZStatus* status = nullptr) const;

    // `creator` returns a new instance of the node's class (a ZPxNode
    // subclass); `initialize` creates its attributes. `classification` files
    // the type for the viewport's draw registry.
    ZStatus registerNode(const ZString& typeName, const ZTypeId& typeId, ZCreatorFunction creator,
                         ZInitializeFunction initialize, ZPxNode::Type type = ZPxNode::kDependNode,
                         const ZString* classification = nullptr);
    // Fails while nodes of the type exist.
    ZStatus deregisterNode(const ZTypeId& typeId);

    // `creator` returns a new ZPxCommand subclass. With `createSyntax`, every
    // call of the command is checked against its syntax before doIt.
    ZStatus registerCommand(const ZString& commandName, ZCreatorFunction creator,
                            ZCreateSyntaxFunction createSyntax = nullptr);
    ZStatus deregisterCommand(const ZString& commandName);

    // `creator` returns a new ZPxContextCommand subclass.
    ZStatus registerContextCommand(const ZString& commandName, ZCreatorFunction creator);
    // Also ends the contexts the command made.
    ZStatus deregisterContextCommand(const ZString& commandName);

    // Runs `registerStrings` now, and makes it a script procedure called
    // `procedureName` so that the host's scripts can run it again (when they
    // reload the string tables). Fails with the status `registerStrings`
    // returns.
    ZStatus registerUIStrings(ZInitializeFunction registerStrings, const ZString& procedureName);

    // Adds a folder of the plug-in's host-side scripts to the interpreter's
    // module path; its `zyvo` subfolder joins the `zyvo` package.
    ZStatus addScriptsPath(const ZString& folder);
};
