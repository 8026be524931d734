#pragma once

/// `FL_I18N_API` marks what the shared library exports; everything else is hidden.
///
/// `FL_I18N_STATIC` is defined by code that links the object files themselves instead of the shared library.
#if defined(FL_I18N_STATIC)
#define FL_I18N_API
#elif defined(_WIN32)
#if defined(FL_I18N_BUILDING)
#define FL_I18N_API __declspec(dllexport)
#else
#define FL_I18N_API __declspec(dllimport)
#endif
#else
#define FL_I18N_API __attribute__((visibility("default")))
#endif
