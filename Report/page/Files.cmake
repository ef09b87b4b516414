# The scripts of the page, in the order in which they stand in it.
set(page_scripts data.js format.js elements.js search.js overview.js axis.js timeline.js facets.js list.js theme.js main.js)
