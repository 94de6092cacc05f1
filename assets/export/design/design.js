// The music that welcomes the visitor: on a press, for browsers play nothing unasked.
(function () {
  "use strict";

  var button = document.getElementById("music");
  if (!music || music.indexOf("^^") === 0)
    return;
  var player = new Audio(music);
  function show(playing) { button.setAttribute("aria-pressed", playing ? "true" : "false"); }
  player.loop = true;
  player.onplay = function () { show(true); };
  player.onpause = function () { show(false); };
  button.hidden = false;
  button.onclick = function () {
    if (player.paused)
      player.play().catch(function () { show(false); });
    else
      player.pause();
  };
})();
