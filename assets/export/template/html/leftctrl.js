// The photograph, as large as its frame allows. "?Page=" says which; "?cords=", which a name on
// the side page asks for, puts the marker on that person's face.
(function () {
  "use strict";

  var markedSide = 5760; // the longer side of a photograph, in the measure of the marks

  var mount = document.getElementById("mount");
  var picture = document.getElementById("picture");
  var marker = document.getElementById("marker");
  var missing = document.getElementById("missing");
  var cords = placeIn(album.query("cords"));
  var number = 0;

  // Nine characters, counted from behind an id of three digits: behind a longer one they begin too
  // early and lack the last digits. The middle of what these may have been is near enough.
  function placeIn(text) {
    var found = /^(?:\d*-)?(\d{4})X(\d{2,4})$/.exec(text);
    return found && { x: +found[1], y: +(found[2] + "50").substr(0, 4) };
  }

  // The rest is the style sheet's, on the screen and on paper.
  function fit() {
    mount.style.setProperty("--ratio", picture.naturalWidth / picture.naturalHeight);
    mount.style.setProperty("--natural", picture.naturalWidth + "px");
  }

  // In parts of the picture, so that it is right at every size and on paper.
  function mark() {
    var longer = Math.max(picture.naturalWidth, picture.naturalHeight);
    marker.hidden = !cords;
    if (!cords)
      return;
    marker.style.left = 100 * cords.x / markedSide * longer / picture.naturalWidth + "%";
    marker.style.top = 100 * cords.y / markedSide * longer / picture.naturalHeight + "%";
  }

  function loaded() {
    mount.hidden = false;
    fit();
    mark();
    album.tell(parent, { loaded: number });
  }

  function notThere() {
    missing.hidden = false;
    album.tell(parent, { missing: number });
  }

  function show(page) {
    if (number)
      return;
    number = page;
    picture.alt = "Photograph " + number;
    picture.onload = loaded;
    picture.onerror = notThere;
    picture.src = "../data/" + number + ".jpg";
  }

  function step(by) { album.tell(parent, { step: by }); }

  album.listen(function (frame) { return frame === parent; }, function (message) {
    if (message.number)
      show(message.number);
  });
  album.onStepKeys(step);
  album.onSwipe(step);
  if (album.query("Page"))
    show(album.pageNumber(album.query("Page")));
  else
    album.tell(parent, { ask: "number" });
})();
