/* The version of the library that these headers describe. The build reads it from here. */
#ifndef VSKCORE_CORE_VSKVERSION_H
#define VSKCORE_CORE_VSKVERSION_H

#define VSK_VERSION_MAJOR 0
#define VSK_VERSION_MINOR 1
#define VSK_VERSION_BUILD 0

/* "major.minor.build" */
#define VSK_VERSION "0.1.0"

#endif
