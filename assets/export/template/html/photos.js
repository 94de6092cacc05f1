// What the scripts know of the photographs: an export writes this file anew.
var albumPhotos = {"count": 0, "music": "", "photos": {}};
