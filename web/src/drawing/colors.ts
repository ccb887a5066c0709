// The colours of drawings, on the screen and on paper.

export const kColors = {
    ink: '#16202b', muted: '#55616e', line: '#b3151b', base: '#1450a3', paper: '#ffffff', other: '#eceae4', otherInk: '#9a968c',
    pieces: ['#f7dba7', '#dcead6', '#d3e2f2', '#f3d8db', '#e4dcf0', '#f0ecc6', '#d4ebe8', '#ecdccf'],
    undivided: '#f4efe3', hover: '#1450a3', hatch: '#99a899',
} as const;
