/* The companion library of Ferrow: ferrow.dll on Windows, libferrow.so
 * elsewhere. A C interface; the program loads it at run time and works
 * without it.
 *
 * Strings are zero-terminated 8-bit text in the system's code page (the ANSI
 * code page on Windows, UTF-8 elsewhere). A string result belongs to the
 * caller, who frees it with CoTaskMemFree on Windows and free() elsewhere; it
 * is NULL only when no memory could be had. A string argument passed as
 * `char*` is a buffer the library may rewrite in place.
 */
#ifndef FERROW_HELPER_H_
#define FERROW_HELPER_H_

#include <stdint.h>

#if defined(_WIN32)
#define FERROW_CALL __stdcall
#if defined(FERROW_HELPER_BUILD)
#define FERROW_API __declspec(dllexport)
#else
#define FERROW_API __declspec(dllimport)
#endif
#else
#define FERROW_CALL
#define FERROW_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The library's version times 100: 103 stands for 1.03. */
FERROW_API int16_t FERROW_CALL DLLVersion(void);

/* The line made safe inside rich text: "\" -> "\\", "{" -> "\{", "}" -> "\}". */
FERROW_API char* FERROW_CALL RTFFilter(char* line);

/* As RTFFilter, but backslashes are left as they are. */
FERROW_API char* FERROW_CALL RTFFilterNoSlash(char* line);

/* The full path of the file a shortcut (.lnk) points to; "" when the file is
 * no readable shortcut. */
FERROW_API char* FERROW_CALL GetLinkTarget(const char* link_path);

/* The full path of this library file. */
FERROW_API char* FERROW_CALL GetDLLFileName(void);

/* A folder of the user's: 0 is the desktop. "" for a kind it does not know. */
FERROW_API char* FERROW_CALL GetProfileDir(int32_t kind);

/* Writes a shortcut at `link_path` to `target`. `description`, `arguments` and
 * `icon_path` may be empty; `show_command` is the window state (1 normal) and
 * `icon_index` the icon's index (-1 none). Non-zero on success. */
FERROW_API int16_t FERROW_CALL CreateShortcut(const char* target, const char* link_path,
                                              const char* description, const char* arguments,
                                              const char* icon_path, int32_t show_command,
                                              int32_t icon_index);

#ifdef __cplusplus
}
#endif

#endif /* FERROW_HELPER_H_ */
