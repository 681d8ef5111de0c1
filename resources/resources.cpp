// The resources are linked in by the build; this file gives the library its one object.
