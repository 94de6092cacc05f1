// The paging, from the first photograph up to the last, the sound and the way back to the album.
// It stays while one goes on; the frame page tells it the number.
(function () {
  "use strict";

  var count = parseInt(photoCount, 10) || 0;
  var number = Math.min(album.pageNumber(album.query("Page")), count);
  var start = album.startPage(album.query("Album"));
  var previous = document.getElementById("previous");
  var next = document.getElementById("next");
  var field = document.getElementById("number");
  var albumLink = document.getElementById("album");
  var sound = document.getElementById("sound");
  var tune = document.getElementById("tune");
  var heard = "";
  var stopSound = album.offerSound(sound, tune, "", false);

  function offerPage(link, page) {
    if (page >= 1 && page <= count)
      link.href = album.frameAddress("../", page, start);
    else
      link.removeAttribute("href");
    link.setAttribute("aria-disabled", link.href ? "false" : "true");
    link.onclick = function (event) {
      if (parent === window)
        return;
      event.preventDefault();
      if (link.href)
        album.tell(parent, { goTo: page });
    };
  }

  function show(page) {
    number = page;
    field.value = page;
    document.getElementById("count").textContent = count;
    offerPage(previous, number - 1);
    offerPage(next, number + 1);
  }

  function offer(address) {
    if (address === heard)
      return;
    heard = address;
    stopSound();
    stopSound = album.offerSound(sound, tune, address ? "../" + address : "", false);
  }

  function step(by) { album.tell(parent, { step: by }); }

  document.getElementById("go").addEventListener("submit", function (event) {
    event.preventDefault();
    var page = parseInt(field.value, 10);
    if (page >= 1 && page <= count)
      album.tell(parent, { goTo: page });
    field.value = page >= 1 && page <= count ? page : number;
    field.blur();
  });
  field.addEventListener("focus", function () { field.select(); });
  document.getElementById("print").onclick = function () { album.tell(parent, { print: true }); };
  albumLink.hidden = !start;
  if (start)
    albumLink.href = "../" + encodeURIComponent(start);

  album.listen(function (frame) { return frame === parent; }, function (message) {
    if (message.number && message.number !== number)
      offer("");
    if (message.number)
      show(message.number);
    if (message.sound !== undefined)
      offer(message.sound);
  });
  album.onStepKeys(step);
  show(number);
  album.tell(parent, { ask: "sound" });
})();
