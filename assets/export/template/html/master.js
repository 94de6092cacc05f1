// The start page: names its thumbnails, tells the frame page the way back, plays the music.
(function () {
  "use strict";

  function numberOf(link) {
    var found = /[?&]Page=(\d+)/.exec(link.getAttribute("href"));
    return found ? found[1] : "";
  }

  function nameThumbnail(link) {
    var picture = link.querySelector("img");
    if (!picture)
      return;
    picture.alt = link.title = "Photograph " + numberOf(link);
    if (picture.complete && picture.naturalWidth === 0)
      link.className = "noThumbnail";
    picture.addEventListener("error", function () { link.className = "noThumbnail"; });
  }

  function tellWayBack(link) {
    var name = album.decode(location.pathname.split("/").pop());
    if (album.startPage(name))
      link.href = album.frameAddress("", numberOf(link), name);
  }

  document.getElementById("empty").hidden = document.querySelector("#thumbs a") !== null;
  var links = document.querySelectorAll("#thumbs a");
  for (var i = 0; i < links.length; ++i) {
    nameThumbnail(links[i]);
    tellWayBack(links[i]);
  }

  // The place for its name stays as it was where the music came from a disc.
  var music = backgroundSound.indexOf("^^") === 0 ? albumPhotos.music : backgroundSound;
  album.offerSound(document.getElementById("sound"), document.getElementById("tune"),
                   music ? "audio/" + encodeURIComponent(music) : "", true);
  var print = document.getElementById("print");
  print.hidden = false;
  print.onclick = function () { window.print(); };
})();
