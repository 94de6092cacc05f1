// The frame page: one photograph with what is known of it beside it. The number stands in the
// address, behind "?Page=" at first and behind "#" as one goes on, so that the music plays on, the
// browser's Back works and a page can be sent to somebody.
(function () {
  "use strict";

  var photo = document.getElementById("photo");
  var side = document.getElementById("side");
  var paging = document.getElementById("paging");
  var paper = document.getElementById("paper");
  var start = album.startPage(album.query("Album"));
  var count = albumPhotos.count;
  var shown = 0;
  var loaded = 0; // the photograph that its frame has shown last

  function wanted() {
    var behind = /^#(\d+)$/.exec(location.hash);
    return Math.min(album.pageNumber(behind ? behind[1] : album.query("Page")), count);
  }

  // Not through `src`, which would make an entry of its own in the browser's history.
  function open(frame, address) {
    frame.contentWindow.location.replace(new URL(address, location.href).href);
  }

  // The side page has no room for a long story on paper. The texts are shown as it shows them.
  function write(line, text) {
    if (!text)
      return;
    var paragraph = document.createElement("p");
    paragraph.className = line;
    paragraph.innerHTML = text;
    paper.appendChild(paragraph);
  }

  function writeForPaper() {
    var told = known(shown);
    paper.innerHTML = "";
    write("year", told.year);
    write("event", told.event);
    write("names", (told.names || []).join(", "));
    write("description", told.description);
  }

  function show(number) {
    if (number === shown)
      return;
    shown = number;
    document.title = "Photograph " + number + " of " + count;
    document.body.classList.remove("alone");
    open(photo, "html/leftctrl.htm?Page=" + number);
    open(side, "data/" + number + ".htm");
    tellSound();
    writeForPaper();
  }

  function goTo(number) {
    number = Math.min(Math.max(1, number), count);
    if (number !== shown)
      location.hash = "#" + number;
  }

  function step(by) { goTo(shown + by); }

  // Behind the last photograph there is no file.
  function preloadNext() {
    if (loaded === shown && shown < count)
      new Image().src = "data/" + (shown + 1) + ".jpg";
  }

  // Not from the side page: from a disk no page may be read.
  function known(number) { return albumPhotos.photos[number] || {}; }

  function tellSound() {
    var sound = known(shown).sound;
    album.tell(paging.contentWindow, { number: shown, sound: sound ? "audio/" + encodeURIComponent(sound) : "" });
  }

  // Keys pressed in the side page do not come here from a disk: after a click the focus returns.
  var byTab = false;
  window.addEventListener("keydown", function (event) { byTab = event.key === "Tab"; });
  window.addEventListener("blur", function () {
    if (document.activeElement === side && !byTab)
      setTimeout(function () { window.focus(); side.blur(); }, 0);
    byTab = false;
  });

  function sideLoaded() {
    try {
      album.onStepKeys(step, side.contentWindow);
    } catch (unreadable) { // see above
    }
  }

  album.listen(function (frame) {
    return frame === photo.contentWindow || frame === paging.contentWindow;
  }, function (message, frame) {
    if (message.ask === "number")
      album.tell(frame, { number: shown });
    if (message.ask === "sound")
      tellSound();
    if (message.step !== undefined)
      step(message.step);
    if (message.goTo !== undefined)
      goTo(message.goTo);
    if (message.loaded !== undefined) {
      loaded = message.loaded;
      preloadNext();
    }
    if (message.missing === shown) {
      document.body.classList.add("alone");
      open(side, "about:blank");
    }
    if (message.print)
      window.print();
  });

  side.addEventListener("load", sideLoaded);
  window.addEventListener("hashchange", function () { show(wanted()); });
  album.onStepKeys(step);
  photo.hidden = side.hidden = count === 0;
  document.getElementById("empty").hidden = count > 0;
  show(wanted());
  open(paging, "html/rightctrl.htm?Page=" + shown + (start ? "&Album=" + encodeURIComponent(start) : ""));
})();
