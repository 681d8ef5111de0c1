#include <stdio.h>
/* "no string" // */ int x = 0x1F; // 'c' /*
char *s = "a \"b\" // c", c = '\'', d = '"';
#if defined(A) && B >= 10
return s[0] == 'x' ? 1.5e3f : 007;
