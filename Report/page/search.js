// Which rows fit what is asked for: every word of the text in some text of the row, one of the kinds, one of the
// applications; nothing asked fits everything.

// These say little in words, and would find nearly every row.
const unsearchedFields = new Set(["button", "toggleState", "processID"]);

// Without regard to letter case and accents.
function folded(text) { return text.normalize("NFKD").replace(/\p{M}+/gu, "").toLowerCase(); }

function wordsOf(text) { return folded(text).split(/\s+/u).filter(word => word !== ""); }

class Search {
  constructor(session) {
    this.session = session;
    this.searchedPieces = session.kinds.map(kind => [column.deed, column.object, column.outcome,
      ...[...kind.fields.keys()].filter(index => !unsearchedFields.has(kind.fields[index]))
        .map(index => column.members + index)]);
  }

  rows({ text, kinds, applications }) {
    const words = wordsOf(text).map(word => this.hitsOf(word));
    const found = [];
    for (let row = 0; row < this.session.count; ++row) {
      if (kinds.size > 0 && !kinds.has(this.session.kindIndex(row))) continue;
      if (applications.size > 0 && !applications.has(this.session.applicationIndex(row))) continue;
      if (words.every(hits => this.hasHit(row, hits))) found.push(row);
    }
    return found;
  }

  // Each text is looked at once for each word, however many rows it stands in.
  hitsOf(word) {
    this.foldedTexts ??= this.session.texts.map(folded);
    return {
      texts: this.foldedTexts.map(text => text.includes(word)),
      kinds: this.session.kinds.map(kind => folded(kind.label).includes(word)),
      applications: this.session.applications.map(application => folded(application.label).includes(word)),
    };
  }

  hasHit(row, hits) {
    const { rows, starts } = this.session;
    const start = starts[row], kind = rows[start + column.kind];
    return hits.kinds[kind] || hits.applications[rows[start + column.application]] ||
      this.searchedPieces[kind].some(piece => hits.texts[rows[start + piece]]);
  }
}

// The text as nodes, with what the words found marked.
function marked(text, words) {
  if (words.length === 0) return [text];
  const pattern = words.map(word => word.replace(/[.*+?^${}()|[\]\\]/g, "\\$&")).join("|");
  return text.split(new RegExp(`(${pattern})`, "iu"))
    .map((part, index) => index % 2 === 1 ? element("mark", {}, part) : part);
}
