import js from '@eslint/js'
import vue from 'eslint-plugin-vue'
import ts from 'typescript-eslint'

const domGlobals = [
  'window', 'document', 'navigator', 'location', 'history', 'localStorage', 'sessionStorage', 'fetch', 'WebSocket',
  'HTMLElement', 'Element', 'Event', 'KeyboardEvent', 'MouseEvent', 'setTimeout', 'clearTimeout', 'setInterval',
  'requestAnimationFrame', 'self', 'globalThis',
]

export default ts.config(
  { ignores: ['dist/', 'node_modules/'] },
  js.configs.recommended,
  ...ts.configs.strict,
  ...vue.configs['flat/recommended'],
  {
    files: ['**/*.vue'],
    languageOptions: { parserOptions: { parser: ts.parser } },
  },
  {
    rules: {
      'no-undef': 'off',
      'no-eval': 'error',
      'vue/multi-word-component-names': 'off',
      // Line breaks of templates are a matter of taste, not of faults.
      'vue/max-attributes-per-line': 'off',
      'vue/singleline-html-element-content-newline': 'off',
      'vue/html-self-closing': ['warn', { html: { void: 'always' } }],
      'vue/html-indent': 'off',
      'vue/html-closing-bracket-newline': 'off',
      'vue/multiline-html-element-content-newline': 'off',
      'vue/first-attribute-linebreak': 'off',
      'vue/require-default-prop': 'off',
    },
  },
  {
    // The core runs in a browser, in a test and in a script alike: what it needs of them is handed to it.
    files: ['src/core/**/*.ts'],
    rules: {
      'no-restricted-imports': ['error', {
        paths: ['vue', 'element-plus'],
        patterns: ['*.vue', '../vue/*', '../renderers/*', '../grid/*', '../layouts/*'],
      }],
      'no-restricted-globals': ['error', ...domGlobals],
    },
  },
)
