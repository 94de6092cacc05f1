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
    var name = decodeURIComponent(location.pathname.split("/").pop());
    if (album.startPage(name))
      link.href = album.frameAddress("", numberOf(link), name);
  }

  var links = document.querySelectorAll("#thumbs a");
  for (var i = 0; i < links.length; ++i) {
    nameThumbnail(links[i]);
    tellWayBack(links[i]);
  }

  // Without music of its own the album leaves the place for its name as it was.
  var hasSound = backgroundSound && backgroundSound.indexOf("^^") !== 0;
  album.offerSound(document.getElementById("sound"), document.getElementById("tune"),
                   hasSound ? "audio/" + encodeURIComponent(backgroundSound) : "", true);
  var print = document.getElementById("print");
  print.hidden = false;
  print.onclick = function () { window.print(); };
})();
