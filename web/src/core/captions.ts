// Captions carry a letter for the keyboard as "(&N)" or "&Name", and blanks that align them on a fixed grid.

const ACCESS_LETTER = /&([A-Za-z0-9])/

/** The letter that, with Alt, reaches the component; empty for none. */
export function accessLetter(caption: string): string {
  return ACCESS_LETTER.exec(caption)?.[1]?.toUpperCase() ?? ''
}

/** The caption as a person reads it. */
export function plainCaption(caption: string): string {
  return caption.replace(/\s*\(&[A-Za-z0-9]\)/, '').replace(ACCESS_LETTER, '$1').trim()
}

/** The caption as the label of a field: without aligning blanks and the colon. */
export function fieldCaption(caption: string): string {
  return plainCaption(caption).replace(/\u3000/g, '').replace(/\s*[:：]$/, '').trim()
}
