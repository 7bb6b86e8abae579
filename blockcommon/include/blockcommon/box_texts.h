// Texts of the message boxes of the block commands, with an id for each: what functions of dlgTips and filePath show,
// and what a host or a tool compares to find out which box it got. In a body %s is a name or path, %d a number.
#pragma once

namespace dlgTips {

// A box. The id is stable; the texts are those that the user reads.
struct BoxText {
  const char* id;
  const wchar_t* caption;
  const wchar_t* body;
};

// One box each.
inline constexpr BoxText kBlockRedefine{
    "box.block-redefine", L"块 - 重新定义块",
    L"\"%s\"已定义为块。希望执行什么操作?\n图形中“%s”块参照的数量：%d\n是：重新定义块，否：不重新定义块"};
inline constexpr BoxText kBlockChanged{"box.block-changed", L"块 - 重新定义块", L"块定义已更改，是否要重新定义此块?"};
inline constexpr BoxText kNoObjects{"box.no-objects", L"块 - 未选定任何对象",
                                    L"尚未为块选定任何对象。希望执行什么操作?"};
inline constexpr BoxText kNameExternal{"box.name-external", L"块 - 外部参照",
                                       L"该块名已被外部参照使用。\n请指定另一块名。"};
inline constexpr BoxText kNameEmpty{"box.name-empty", L"块 - 文字长度", L"名称 必须至少有一个字符长。"};
inline constexpr BoxText kNameTooLong{"box.name-too-long", L"块 - 文字长度", L"名称 不能长于 255 个字符。"};
inline constexpr BoxText kNameCharacters{"box.name-characters", L"块 - 不支持的字符",
                                         L"名称 包含不支持的字符。\n不支持以下字符:\n \\ < > / ? \" : ; * | , = `"};
inline constexpr BoxText kNameInvalid{"box.name-invalid", L"块 - 块名无效",
                                      L"指定的块名无效。\n请选择其他块名或浏览到其他文件。"};
inline constexpr BoxText kBlockAttached{"box.block-attached", L"块 - 外部参照冲突",
                                        L"无法插入该块，因为它已附着为外部参照。"};
inline constexpr BoxText kBasePointX{"box.base-point-x", L"块 - 无效坐标值",
                                     L"输入的 X 坐标无效。\n必须输入一个数值。"};
inline constexpr BoxText kBasePointY{"box.base-point-y", L"块 - 无效坐标值",
                                     L"输入的 Y 坐标无效。\n必须输入一个数值。"};
inline constexpr BoxText kBasePointZ{"box.base-point-z", L"块 - 无效坐标值",
                                     L"输入的 Z 坐标无效。\n必须输入一个数值。"};
inline constexpr BoxText kContainsItself{"box.contains-itself", L"块 - 循环块参照",
                                         L"块 %s 参照自身。\n块不能包含具有相同名称的块插入。"};
inline constexpr BoxText kNotModified{"box.not-modified", L"块 - 未修改",
                                      L"现有的块 %s未经修改。\n若要继续，请修改现有块、指定其他块名或点击“关闭”。"};
inline constexpr BoxText kLockedLayers{
    "box.locked-layers", L"块 - 对象位于锁定图层上",
    L"选择集中的一个或多个对象位于锁定图层上。此块中将仅包含非锁\r\n定图层上的对象。\n锁定图层上的对象数量: %d"};
inline constexpr BoxText kPathCharacters{
    "box.path-characters", L"写块 - 不支持的字符",
    L"文件名和路径(F): 包含不支持的字符。\n不支持的字符：文件名或目录名中不能包含“/ | < > ? ; * "
    L":”，且“.”不能用作相对路径。"};
inline constexpr BoxText kPathIncomplete{"box.path-incomplete", L"块 - 未指定路径或文件名",
                                         L"未指定输出文件名或完整路径。\n请在 文件和路径 字段中输入完整路径和文件名。"};
inline constexpr BoxText kPathFolder{"box.path-folder", L"块 - 路径无效", L"指定的路径无效。"};
inline constexpr BoxText kPathBlank{"box.path-blank", L"Morvane", L"输出文件名包含无效字符。"};
inline constexpr BoxText kPathTooLong{"box.path-too-long", L"块 - 文件路径太长",
                                      L"用于指定文件名和文件位置的字符不应超过259个。"};
inline constexpr BoxText kFileInUse{"box.file-in-use", L"块 - 文件正在使用", L"%s 已在使用。请指定其他文件名"};
inline constexpr BoxText kFileNotFound{"box.file-not-found", L"块 - 未找到文件",
                                       L"未找到指定的文件。\n请指定正确的文件名或选择有效的块名。"};

// All boxes.
inline constexpr const BoxText* kBoxTexts[] = {
    &kBlockRedefine,  &kBlockChanged, &kNoObjects,     &kNameExternal,   &kNameEmpty,      &kNameTooLong,
    &kNameCharacters, &kNameInvalid,  &kBlockAttached, &kBasePointX,     &kBasePointY,     &kBasePointZ,
    &kContainsItself, &kNotModified,  &kLockedLayers,  &kPathCharacters, &kPathIncomplete, &kPathFolder,
    &kPathBlank,      &kPathTooLong,  &kFileInUse,     &kFileNotFound};

} // namespace dlgTips
