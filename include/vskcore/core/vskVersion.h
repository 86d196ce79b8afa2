/* The version of the library that these headers describe. The build reads it from here. */
#ifndef VSKCORE_CORE_VSKVERSION_H
#define VSKCORE_CORE_VSKVERSION_H

#define VSK_VERSION_MAJOR 0 /* goes up when the contract breaks */
#define VSK_VERSION_MINOR 1 /* before 1.0 likewise */
#define VSK_VERSION_BUILD 0 /* goes up with each release between */

/* "major.minor.build" */
#define VSK_VERSION "0.1.0"

#endif
