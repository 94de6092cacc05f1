// What all pages of the album share. The pages are opened from a disk as well as from a server,
// where a browser lets no frame look into another: they talk by messages.
var album = (function () {
  "use strict";

  // Nothing where it is not UTF-8, as of a name that another system has written.
  function decode(text) {
    try {
      return decodeURIComponent(text);
    } catch (notUtf8) {
      return "";
    }
  }

  function query(name) {
    var found = new RegExp("[?&]" + name + "=([^&]*)", "i").exec(location.search);
    return found ? decode(found[1]) : "";
  }

  function pageNumber(text) {
    var number = parseInt(text, 10);
    return number >= 1 ? number : 1;
  }

  // One of the album's pages beside the frame page, never an address elsewhere.
  function startPage(name) {
    return /^[^\/\\:?]+\.htm$/i.test(name) ? name : "";
  }

  function frameAddress(folder, number, start) {
    return folder + "frameset.htm?Page=" + number +
        (start ? "&Album=" + encodeURIComponent(start) : "");
  }

  function tell(other, message) {
    if (other && other !== window)
      other.postMessage({ album: message }, "*");
  }

  // handler(message, frame) for what `from(frame)` accepts as one of our own frames.
  function listen(from, handler) {
    window.addEventListener("message", function (event) {
      if (from(event.source) && event.data && event.data.album)
        handler(event.data.album, event.source);
    });
  }

  var steps = { ArrowLeft: -1, ArrowRight: 1, Home: -Infinity, End: Infinity };

  function onStepKeys(step, where) {
    (where || window).addEventListener("keydown", function (event) {
      var typing = event.target && /^(INPUT|SELECT|TEXTAREA)$/.test(event.target.tagName);
      var by = steps[event.key];
      if (!by || typing || event.altKey || event.ctrlKey || event.metaKey || event.shiftKey)
        return;
      event.preventDefault();
      step(by);
    });
  }

  // A finger drawn across pages on, unless the page is enlarged and the finger moves it.
  function onSwipe(step) {
    var begun = null;
    document.addEventListener("touchstart", function (event) {
      var touch = event.touches[0];
      begun = event.touches.length === 1 ? { x: touch.clientX, y: touch.clientY } : null;
    }, { passive: true });
    document.addEventListener("touchend", function (event) {
      var enlarged = window.visualViewport && window.visualViewport.scale > 1.05;
      if (!begun || enlarged)
        return;
      var x = event.changedTouches[0].clientX - begun.x;
      var y = event.changedTouches[0].clientY - begun.y;
      begun = null;
      if (Math.abs(x) > 50 && Math.abs(x) > 2 * Math.abs(y))
        step(x < 0 ? 1 : -1);
    }, { passive: true });
  }

  // Browsers play nothing unasked, and no browser plays MIDI: a tune is handed to the desktop.
  function offerSound(button, link, address, loop) {
    var player = null;
    var playable = address && !/\.midi?$/i.test(address);
    button.hidden = !playable;
    link.hidden = !address || playable;
    if (!link.hidden)
      link.href = address;
    else
      link.removeAttribute("href");

    function show(playing) {
      button.setAttribute("aria-pressed", playing ? "true" : "false");
    }
    button.onclick = function () {
      if (!player) {
        player = new Audio(address);
        player.loop = loop;
        player.onplay = function () { show(true); };
        player.onpause = player.onended = function () { show(false); };
        player.onerror = function () { show(false); button.disabled = true; };
      }
      if (player.paused)
        player.play().catch(function () { show(false); });
      else
        player.pause();
    };
    button.disabled = false;
    show(false);
    return function stop() {
      if (player)
        player.pause();
    };
  }

  return {
    decode: decode, query: query, pageNumber: pageNumber, startPage: startPage,
    frameAddress: frameAddress, tell: tell, listen: listen, onStepKeys: onStepKeys, onSwipe: onSwipe, offerSound: offerSound
  };
})();
