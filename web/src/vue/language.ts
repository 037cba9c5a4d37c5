import { computed, readonly, ref } from 'vue'
import { LANGUAGES, languageFrom, textIn, type Language, type TextKey } from '../core/texts'

const STORED_AS = 'language'

const current = ref<Language>(languageFrom(localStorage.getItem(STORED_AS) ?? navigator.language))
applyToPage(current.value)

/** The language of the page. */
export const language = readonly(current)

export function setLanguage(wanted: Language): void {
  current.value = wanted
  localStorage.setItem(STORED_AS, wanted)
  applyToPage(wanted)
}

/** A text of the client in the language of the page; follows a change of it. */
export function t(key: TextKey, ...inserts: (string | number)[]): string {
  return textIn(current.value, key, ...inserts)
}

export const otherLanguages = computed(() => LANGUAGES.filter(entry => entry.code !== current.value))

function applyToPage(wanted: Language): void {
  const tag = LANGUAGES.find(entry => entry.code === wanted)?.tag
  if (tag) document.documentElement.lang = tag
  document.title = textIn(wanted, 'product')
}
