// Finds the pieces of the help that have most of the words asked for, the rare words first. Written
// for every browser that a page from a file may meet.
(function () {
  "use strict";

  var MOST_RESULTS = 40;
  var LONGEST_EXCERPT = 220;

  function wordsOf(text) {
    return text.toLowerCase().match(/[0-9a-z\u00b5\u00df-\u00ff]+/g) || [];
  }

  var pieces = searchIndex.map(function (entry) {
    // What a message names takes the place of its %s.
    var heading = wordsOf((entry.heading || entry.title).replace(/%[sd]/g, " "));
    return {
      entry: entry,
      heading: heading,
      words: heading.concat(wordsOf([entry.title, entry.keywords, entry.text].join(" ")))
    };
  });

  // 1 for the word itself, less for one that begins with it, 0 for none.
  function likeness(words, word) {
    var best = 0;
    for (var i = 0; i < words.length; ++i) {
      if (words[i] === word) {
        return 1;
      }
      if (words[i].lastIndexOf(word, 0) === 0) {
        best = 0.6;
      }
    }
    return best;
  }

  // How much it tells that a piece has the word: nothing for one that is nowhere.
  function weightOf(word) {
    var found = pieces.filter(function (piece) { return likeness(piece.words, word) > 0; }).length;
    return found === 0 ? 0 : Math.log(1 + pieces.length / found);
  }

  function rate(piece, asked) {
    var covered = 0;
    var inHeading = 0;
    asked.forEach(function (one) {
      covered += one.weight * likeness(piece.words, one.word);
      inHeading += one.weight * likeness(piece.heading, one.word);
    });
    var words = asked.map(function (one) { return one.word; });
    var told = piece.heading.filter(function (word) { return words.indexOf(word) >= 0; }).length;
    // A heading that is asked for as a whole, as a message with a name in it, is what is looked for.
    var whole = told === piece.heading.length;
    return {
      entry: piece.entry,
      covered: covered,
      isMeant: whole && told > 1,
      score: covered + inHeading * (whole ? 4 : 1)
    };
  }

  function find(query) {
    var words = wordsOf(query);
    var asked = words.filter(function (word, at) { return words.indexOf(word) === at; })
      .map(function (word) { return { word: word, weight: weightOf(word) }; });
    var rated = pieces.map(function (piece) { return rate(piece, asked); });
    var most = rated.reduce(function (best, one) { return Math.max(best, one.covered); }, 0);
    return rated
      .filter(function (one) {
        return one.isMeant || (one.covered > 0 && one.covered >= 0.7 * most);
      })
      .sort(function (a, b) { return b.score - a.score; })
      .slice(0, MOST_RESULTS)
      .map(function (one) { return one.entry; });
  }

  // The text as nodes, with what begins like one of the words marked.
  function addMarked(parent, text, words) {
    var pattern = new RegExp("(^|[^0-9a-z\u00b5\u00df-\u00ff])(" + words.join("|") + ")", "gi");
    var end = 0;
    for (var match = words.length && pattern.exec(text); match; match = pattern.exec(text)) {
      var start = match.index + match[1].length;
      var mark = document.createElement("mark");
      mark.textContent = match[2];
      parent.appendChild(document.createTextNode(text.slice(end, start)));
      parent.appendChild(mark);
      end = start + match[2].length;
    }
    parent.appendChild(document.createTextNode(text.slice(end)));
  }

  function excerpt(text, words) {
    var lower = text.toLowerCase();
    var places = words.map(function (word) { return lower.indexOf(word); })
      .filter(function (place) { return place >= 0; });
    var first = places.length ? Math.min.apply(null, places) : 0;
    var start = first < 60 ? 0 : text.lastIndexOf(" ", first - 40) + 1;
    var end = start + LONGEST_EXCERPT;
    if (end < text.length) {
      end = text.lastIndexOf(" ", end);
    }
    return (start > 0 ? "\u2026 " : "") + text.slice(start, end) + (end < text.length ? " \u2026" : "");
  }

  function resultOf(entry, words) {
    var item = document.createElement("li");
    var link = document.createElement("a");
    link.href = entry.address;
    addMarked(link, entry.heading || entry.title, words);
    item.appendChild(link);
    if (entry.heading) {
      var topic = document.createElement("span");
      topic.className = "topic";
      topic.textContent = entry.title;
      item.appendChild(topic);
    }
    var text = document.createElement("p");
    addMarked(text, excerpt(entry.text, words), words);
    item.appendChild(text);
    return item;
  }

  var field = document.getElementById("words");
  var results = document.getElementById("results");

  function show() {
    var words = wordsOf(field.value);
    var marked = words.filter(function (word) { return word.length > 1; });
    var found = find(field.value);
    results.textContent = "";
    found.forEach(function (entry) { results.appendChild(resultOf(entry, marked)); });
    document.getElementById("count").textContent =
      words.length === 0 ? "" : found.length === 0 ? "Nothing found." :
        found.length === 1 ? "1 place" : found.length + " places";
    document.getElementById("index").hidden = words.length > 0;
  }

  document.getElementById("search").removeAttribute("hidden");
  document.getElementById("search").addEventListener("submit", function (event) {
    event.preventDefault();
    if (results.firstChild) {
      location.href = results.querySelector("a").href;
    }
  });
  field.addEventListener("input", show);
  // Back from a result, the words are still there.
  window.addEventListener("pageshow", show);
  field.focus();
}());
