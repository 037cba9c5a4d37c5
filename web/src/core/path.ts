/** The steps of a path as the session writes it, "\A\B"; none for the top, undefined for a text that is no path. */
export function pathSteps(text: string): string[] | undefined {
  return text.startsWith('\\') ? text.split('\\').filter(step => step !== '') : undefined
}
