#pragma once

#include <string>

namespace oz::scene {

// The scene as the text of a scene file (.zya): a header with the file
// version, the plug-ins its nodes need and the units, then every node in
// the order it was made (a DAG parent before its children) with its
// dynamic attributes and stored values, then every connection. The same
// scene always gives the same text.
//
//   //Zyvo ASCII scene
//   fileInfo "version" "211";
//   requires "Type" "2.0a";
//   currentUnit -l "cm" -a "deg" -t "film";
//   createNode transform -n "group1";
//   createNode transform -n "box" -p "group1";
//   addAttr -ln "weight" -at "double" -dv 0.5 "box";
//   setAttr "box.translate" 1 2 3;
//   connectAttr "time1.outTime" "type1.time";
std::string writeScene();

} // namespace oz::scene
