// Texts of the console: nested references.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kGraphNode{"graph.node", L"{1}\"{2}\"  reference {3}  chain {4}"};
inline constexpr MessageText kGraphExternal{"graph.external",
                                            L"{1}\"{2}\"  reference {3}  chain {4}  external: {5}, {6}, found at {7}"};
inline constexpr MessageText kGraphLost{"graph.external-lost",
                                        L"{1}\"{2}\"  reference {3}  chain {4}  external: {5}, {6}, no file found"};
inline constexpr MessageText kGraphNoReference{"graph.no-reference",
                                               L"The drawing has no block reference with the handle {1}."};
inline constexpr MessageText kGraphEndless{
    "graph.endless",
    L"The tree below reference {1} is infinite: a dynamic block contains itself through one of its instances."};
inline constexpr MessageText kGraphTooLarge{
    "graph.too-large",
    L"The tree below reference {1} would contain {2} references, more than {3}; --max-nodes allows more."};
inline constexpr MessageText kGraphTooDeep{
    "graph.too-deep",
    L"The chains below reference {1} would list {2} references, too many for {3} nodes; --max-nodes allows more."};
inline constexpr MessageText kEditAllowed{"graph.edit-allowed", L"Reference {1} may be edited in place."};
inline constexpr MessageText kEditXeditOff{
    "graph.edit-xedit-off",
    L"Reference {1} may not be edited in place: the external drawing {3} does not allow it (XEDIT is off there)."};
inline constexpr MessageText kEditExternal{
    "graph.edit-external", L"Reference {1} may not be edited in place: reference {2} is an external reference to {3}."};

} // namespace console::msg
