#pragma once

/// Every name under which the plug-in is known to the host, its scripts and its scene files.
namespace names {

constexpr char kNodeCommand[] = "tqLumisketchNode";
constexpr char kLayerCommand[] = "tqLumisketchLayer";
constexpr char kFrameCommand[] = "tqLumisketchFrame";
constexpr char kStrokeCommand[] = "tqLumisketchStroke";
constexpr char kUtilCommand[] = "tqLumisketchUtil";

constexpr char kDrawContextCommand[] = "tqLmDrawCtx";
constexpr char kTransformContextCommand[] = "tqLmTransformCtx";

constexpr char kNodeType[] = "tqLumisketch";
constexpr unsigned kNodeTypeId = 0x0011A886;
constexpr char kDrawClassification[] = "drawdb/geometry/tqLumisketch";
constexpr char kDrawRegistrant[] = "tqLumisketchPlugin";
constexpr char kTextureBase[] = "lmpVP2Texture";  ///< an instance counter follows

constexpr char kLayerDataType[] = "tqLayerData";
constexpr unsigned kLayerDataTypeId = 0x0011A887;
constexpr char kAbsentLayer[] = "UNKNOWN";  ///< stands for a missing layer in the text record

constexpr char kTransformNode[] = "lumisketch";
constexpr char kShapeNode[] = "lumisketchShape";

constexpr char kCreateMainMenu[] = "tqLmCreateMainMenu";
constexpr char kDeleteMainMenu[] = "tqLmDeleteMainMenu";
constexpr char kUpdateMainMenu[] = "tqLmUpdateMainMenu";
constexpr char kCreateFloatingViewport[] = "tqLmCreateFloatingViewport";
constexpr char kViewportLookThrough[] = "tqLmViewportLookThrough";
constexpr char kViewportCreateCamera[] = "tqLmViewportCreateCamera";
constexpr char kDeleteActiveLayer[] = "tqLmDeleteActiveLayer";
constexpr char kDeleteActiveCameraLayers[] = "tqLmDeleteActiveCameraLayers";
constexpr char kDeleteAllNodes[] = "tqLmDeleteAllNodes";

constexpr char kMessagePrefix[] = "[Lumisketch2] ";
constexpr char kDebugPrefix[] = "[DEBUG] ";

}  // namespace names
